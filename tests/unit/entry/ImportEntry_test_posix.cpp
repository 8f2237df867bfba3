#include "entry/dxfFileOpen.h"

#include "support/Import.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <filesystem>

TEST(ImportEntry, FileOfANameInAnyScriptIsOpened)
{
    const std::string text = EntitiesSection({{0, "LINE"}, {11, 10}});
    const TempFile file(text);
    std::filesystem::path path = file.Path();
    path += u8"-\u56FE\u7EB8-\U0001F4D0.dxf";
    std::filesystem::rename(file.Path(), path);
    RecordingHost& host = RecordingHost::OfThread();
    host.Reset();
    EXPECT_TRUE(
        dxfFileOpen((file.WidePath() + L"-\u56FE\u7EB8-\U0001F4D0.dxf").c_str(), RecordingHost::Context()));
    const std::string trace = host.Trace();
    std::filesystem::remove(path);
    EXPECT_EQ(trace, TraceOf(text));
}

TEST(ImportEntry, PathOfWhatIsNoCharacterNamesNoFile)
{
    const wchar_t path[] = {static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0x110000), L'\0'};
    RecordingHost& host = RecordingHost::OfThread();
    host.Reset();
    EXPECT_TRUE(dxfFileOpen(path, RecordingHost::Context()));
    EXPECT_EQ(host.Trace(), "qlmSetLastError(0, \"DXF\", 1, \"Failed to load DXF file.\", false, 0)\n");
}
