#include "entry/dxfFileOpen.h"

#include "base/Api_windows.h"
#include "support/Import.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <filesystem>

TEST(ImportEntry, FileOfANameThatTheCodePageLacksIsReported)
{
    if (GetACP() != 1252)
        GTEST_SKIP() << "The system's code page is another one.";
    const TempFile file(EntitiesSection({{0, "LINE"}, {11, 10}}));
    const std::filesystem::path path = file.Path().wstring() + L"-\u56FE\u7EB8.dxf";
    std::filesystem::rename(file.Path(), path);
    RecordingHost& host = RecordingHost::OfThread();
    host.Reset();
    EXPECT_TRUE(dxfFileOpen(path.c_str(), RecordingHost::Context()));
    const std::string trace = host.Trace();
    std::filesystem::remove(path);
    EXPECT_EQ(trace, "qlmSetLastError(0, \"DXF\", 1, \"Failed to load DXF file.\", false, 0)\n");
}
