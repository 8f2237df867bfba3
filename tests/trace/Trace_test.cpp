// Golden traces: each drawing x.dxf of this folder stands beside x.trace, every call that its import makes.
//
// PLEXORN_REWRITE_TRACES=1 in the environment writes the traces instead of comparing them; what changed is
// then to be read, line by line, before it is committed. Where the ANSI code page makes a difference,
// x.windows.trace is what Windows gives with code page 1252.
#include "entry/dxfFileOpen.h"
#include "reader/CodePage.h"
#include "support/RecordingHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

const std::filesystem::path kFolder = PLEXORN_TEST_DATA "/trace";

const char* const kDrawings[] = {"bad_blocks",
                                 "bad_dimensions",
                                 "bad_entities",
                                 "bad_tables",
                                 "blocks",
                                 "dimensions",
                                 "dimensions_angular",
                                 "dimensions_linear",
                                 "dimensions_parts",
                                 "dimensions_texts",
                                 "ends_in_a_line",
                                 "ends_in_an_entity",
                                 "geometry",
                                 "international",
                                 "polylines",
                                 "styles",
                                 "texts",
                                 "texts_crlf"};

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string TraceOfFile(const std::filesystem::path& path)
{
    RecordingHost::OfThread().Reset();
    EXPECT_TRUE(dxfFileOpen(path.wstring().c_str(), RecordingHost::Context()));
    return RecordingHost::OfThread().Trace();
}

bool IsRewriting()
{
    const char* const value = std::getenv("PLEXORN_REWRITE_TRACES");
    return value != nullptr && std::string(value) == "1";
}

// The golden trace of a drawing on this platform.
std::filesystem::path GoldenTrace(const std::string& name)
{
    const std::filesystem::path ofWindows = kFolder / (name + ".windows.trace");
#ifdef _WIN32
    if (std::filesystem::exists(ofWindows))
        return ofWindows;
#endif
    return kFolder / (name + ".trace");
}

// Whether the system's code page is the one that the golden traces were made with.
bool IsCodePageOfTraces()
{
#ifdef _WIN32
    wchar_t wide[1] = {};
    return ToWide("\x80", wide) == 1 && wide[0] == 0x20AC; // the euro sign stands there in 1252 alone
#else
    return true;
#endif
}

class Trace : public testing::TestWithParam<const char*> {};

} // namespace

TEST_P(Trace, IsTheGoldenOne)
{
    const std::string name = GetParam();
    const std::filesystem::path golden = GoldenTrace(name);
    if (golden.stem().has_extension() && !IsCodePageOfTraces())
        GTEST_SKIP() << golden << " was made with code page 1252, which is not the system's.";
    const std::string trace = TraceOfFile(kFolder / (name + ".dxf"));
    if (IsRewriting()) {
        std::ofstream(golden, std::ios::binary) << trace;
        GTEST_SKIP() << golden << " is written anew.";
    }
    EXPECT_EQ(trace, ReadFile(golden)) << golden;
}

INSTANTIATE_TEST_SUITE_P(Drawings, Trace, testing::ValuesIn(kDrawings),
                         [](const auto& drawing) { return std::string(drawing.param); });

TEST(TraceFolder, HoldsNoDrawingThatIsNotCompared)
{
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(kFolder))
        if (entry.path().extension() == ".dxf")
            found.push_back(entry.path().stem().string());
    std::sort(found.begin(), found.end());
    EXPECT_EQ(found, std::vector<std::string>(std::begin(kDrawings), std::end(kDrawings)));
}

// Nothing is kept between calls: the second import makes the same calls.
TEST(TraceFolder, GivesTheSameTracesAgain)
{
    for (const char* name : kDrawings) {
        const std::filesystem::path path = kFolder / (std::string(name) + ".dxf");
        const std::string first = TraceOfFile(path);
        EXPECT_EQ(TraceOfFile(path), first) << name;
        EXPECT_NE(first, "") << name;
    }
}
