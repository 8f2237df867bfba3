// Golden traces: next to each drawing x.dxf of this folder and of quirks/ is x.trace, every call that its
// import makes. docs/quirks.md quotes the traces.
//
// PLEXORN_REWRITE_TRACES=1 in the environment writes the traces instead of comparing them. Read every line
// that changed before you commit it. Where the ANSI code page makes a difference, x.windows.trace is what
// Windows gives with code page 1252.
#include "base/CodePage.h"
#include "entry/dxfFileOpen.h"
#include "support/RecordingHost.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

const std::filesystem::path kFolder = PLEXORN_TEST_DATA "/trace";

bool IsForAllSystems(const std::filesystem::path& path)
{
    return !path.stem().has_extension();
}

// The files of this folder and of those in it, such as "quirks/colours", without their extension.
std::vector<std::string> NamesOf(const char* extension)
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(kFolder))
        if (entry.path().extension() == extension && IsForAllSystems(entry.path()))
            names.push_back(entry.path().lexically_relative(kFolder).replace_extension().generic_string());
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> Drawings()
{
    return NamesOf(".dxf");
}

std::string TestNameOf(const testing::TestParamInfo<std::string>& drawing)
{
    std::string name = drawing.param;
    std::replace(name.begin(), name.end(), '/', '_');
    return name;
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
    return ToWide("\x80", wide) == 1 && wide[0] == 0x20AC; // only 1252 has the euro sign there
#else
    return true;
#endif
}

class Trace : public testing::TestWithParam<std::string> {};

} // namespace

TEST_P(Trace, IsTheGoldenOne)
{
    const std::string& name = GetParam();
    const std::filesystem::path golden = GoldenTrace(name);
    if (!IsForAllSystems(golden) && !IsCodePageOfTraces())
        GTEST_SKIP() << golden << " was made with code page 1252, which is not the system's.";
    const std::string trace = TraceOfFile(kFolder / (name + ".dxf"));
    if (IsRewriting()) {
        std::ofstream(golden, std::ios::binary) << trace;
        GTEST_SKIP() << golden << " has been rewritten.";
    }
    EXPECT_EQ(trace, BytesOf(golden)) << golden;
}

INSTANTIATE_TEST_SUITE_P(Drawings, Trace, testing::ValuesIn(Drawings()), TestNameOf);

TEST(TraceFolder, HoldsADrawingForEachTraceAndATraceForEachDrawing)
{
    const std::vector<std::string> traces = NamesOf(".trace");
    EXPECT_EQ(traces, Drawings());
    EXPECT_FALSE(traces.empty());
}

// Nothing is kept between calls: the second import makes the same calls.
TEST(TraceFolder, GivesTheSameTracesAgain)
{
    for (const std::string& name : Drawings()) {
        const std::filesystem::path path = kFolder / (name + ".dxf");
        const std::string first = TraceOfFile(path);
        EXPECT_EQ(TraceOfFile(path), first) << name;
        EXPECT_NE(first, "") << name;
    }
}
