// Real drawings, where there are some: they are outside the project, and nothing needs them.
//
// The trace of each goes to build/traces/<platform>, without the lines that hold characters outside ASCII,
// for those depend on the code page; compare_traces.py compares what two platforms wrote.
#include "entry/dxfFileOpen.h"
#include "support/RecordingHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

#ifdef _WIN32
const char* const kPlatform = "windows";
#else
const char* const kPlatform = "posix";
#endif

std::vector<fs::path> Corpus()
{
    std::vector<fs::path> paths;
    std::error_code missing;
    for (const auto& entry : fs::directory_iterator(PLEXORN_CORPUS, missing))
        if (entry.path().extension() == ".dxf")
            paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    return paths;
}

bool IsAscii(const std::string& text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char character) { return static_cast<unsigned char>(character) < 0x80; });
}

// The binary form of a drawing begins with these words.
bool IsBinary(const fs::path& path)
{
    std::string start(18, ' ');
    std::ifstream(path, std::ios::binary).read(start.data(), static_cast<std::streamsize>(start.size()));
    return start == "AutoCAD Binary DXF";
}

} // namespace

TEST(Corpus, OfRealDrawingsIsImported)
{
    const std::vector<fs::path> paths = Corpus();
    if (paths.empty())
        GTEST_SKIP() << "There are no drawings at " PLEXORN_CORPUS ".";
    const fs::path folder = fs::path(PLEXORN_TEST_DATA) / ".." / "build" / "traces" / kPlatform;
    fs::create_directories(folder);
    RecordingHost& host = RecordingHost::OfThread();
    for (const fs::path& path : paths) {
        SCOPED_TRACE(path);
        host.Reset();
        EXPECT_TRUE(dxfFileOpen(path.wstring().c_str(), RecordingHost::Context()));
        EXPECT_EQ(host.currentNode, nullptr);
        std::size_t drawn = 0, swallowed = 0;
        std::ofstream file(folder / (path.stem().string() + ".trace"), std::ios::binary);
        for (const std::string& call : host.calls) {
            drawn += call.compare(0, 9, "qlmCreate") == 0 ? 1u : 0u;
            swallowed += call.find("\"ReaTABLES_COMMON() ") != std::string::npos ? 1u : 0u;
            EXPECT_EQ(call.find("qlmSetLastError(0, \"DXF\", 1, "), std::string::npos);
            EXPECT_EQ(call.find("qlmSetLastError(0, \"DXF\", 11, "), std::string::npos);
            EXPECT_EQ(call.find("qlmSetLastError(0, \"DXF\", 12, "), std::string::npos);
            if (IsAscii(call))
                file << call << '\n';
        }
        // Releases before 13 write no subclass markers, and a table entry without one swallows the rest.
        if (IsBinary(path))
            EXPECT_EQ(drawn, 0u);
        else
            EXPECT_GT(drawn + swallowed, 0u);
        EXPECT_TRUE(file.good());
    }
    host.Reset();
}
