// The export, on files that are there and on files that are not.
#include "entry/dxfFileOpen.h"

#include "support/Import.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

const std::string kLoadFailure = "qlmSetLastError(0, \"DXF\", 1, \"Failed to load DXF file.\", false, 0)\n";

// The calls that the host gets when the export is called with this path.
std::string TraceOfFile(const std::wstring& path)
{
    RecordingHost& host = RecordingHost::OfThread();
    host.Reset();
    EXPECT_TRUE(dxfFileOpen(path.c_str(), RecordingHost::Context()));
    return host.Trace();
}

std::string Drawing()
{
    return EntitiesSection({{0, "LINE"}, {11, 10}, {21, 5}, {0, "CIRCLE"}, {40, 3}, {0, "SOLID"}});
}

// A folder of its own, removed in the end with all that is in it.
class TempFolder {
public:
    TempFolder() : m_place("") { std::filesystem::create_directory(Path()); }
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(Path(), ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    std::filesystem::path Path() const { return m_place.Path().string() + "-folder"; }

private:
    TempFile m_place; // whose name is taken by nobody else
};

} // namespace

TEST(ImportEntry, DrawsAFileUnderItsParent)
{
    const TempFile file(EntitiesSection({{0, "LINE"}, {10, 1}, {20, 2}, {11, 10}, {21, 5}}));
    EXPECT_EQ(TraceOfFile(file.WidePath()),
              "qlmCreateLine(ctx, \"\", 1, -2, 10, -5, 0, 0) = n1\n"
              "qlmSetAttributeByNode(ctx, n1, \"stroke-width\", \"0.500000\")\n"
              "qlmSetAttributeByNode(ctx, n1, \"stroke\", \"RGB(255,255,255)\")\n"
              "qlmSetAttributeByNode(ctx, n1, \"stroke-dasharray\", \"\")\n");
}

TEST(ImportEntry, ReportsMistakesOfTheFileToTheHost)
{
    const TempFile file(EntitiesSection({{0, "SOLID"}}));
    EXPECT_EQ(TraceOfFile(file.WidePath()),
              "qlmSetLastError(0, \"DXF\", 6, \"SOLID - Unknown Object Type Name (6)\", false, 0)\n");
}

TEST(ImportEntry, FileThatIsNotThereIsReportedAndTheResultIsTrue)
{
    EXPECT_EQ(TraceOfFile(L"there is no such file.dxf"), kLoadFailure);
    EXPECT_EQ(TraceOfFile(L"no such folder/drawing.dxf"), kLoadFailure);
    const TempFile file(Drawing());
    EXPECT_EQ(TraceOfFile(file.WidePath() + L"x"), kLoadFailure);
}

TEST(ImportEntry, EmptyPathIsReported)
{
    EXPECT_EQ(TraceOfFile(std::wstring()), kLoadFailure);
}

TEST(ImportEntry, FolderCannotBeOpened)
{
    const TempFolder folder;
    ASSERT_TRUE(std::filesystem::is_directory(folder.Path()));
    EXPECT_EQ(TraceOfFile(folder.Path().wstring()), kLoadFailure);
    EXPECT_EQ(TraceOfFile(folder.Path().wstring() + L"/"), kLoadFailure);
    EXPECT_EQ(TraceOfFile(L"."), kLoadFailure);
}

TEST(ImportEntry, FileWithNothingToDrawGivesNoCallAtAll)
{
    for (const std::string& text :
         {std::string(), Dxf({{0, "EOF"}}), std::string("\x1A"), Section("HEADER", ""),
          Section("ENTITIES", ""), std::string("no drawing at all")})
        EXPECT_EQ(TraceOfFile(TempFile(text).WidePath()), "") << text;
}

TEST(ImportEntry, TwoCallsInARowDrawTwice)
{
    const TempFile file(EntitiesSection({{0, "LINE"}, {11, 10}}));
    const std::string once = TraceOfFile(file.WidePath());
    EXPECT_NE(once, "");
    EXPECT_TRUE(dxfFileOpen(file.WidePath().c_str(), RecordingHost::Context()));
    std::string second = once;
    for (std::size_t at = 0; (at = second.find("n1", at)) != std::string::npos;)
        second.replace(at, 2, "n2");
    EXPECT_EQ(RecordingHost::OfThread().Trace(), once + second);
}

TEST(ImportEntry, CallsShareNothing)
{
    const TempFile withLayers(
        Section("TABLES",
                Dxf({{0, "TABLE"}, {0, "LAYER"}, {100, "m"}, {2, "Walls"}, {62, 1}, {0, "ENDTAB"}})) +
        EntitiesSection({{0, "LINE"}, {8, "Walls"}}));
    const TempFile without(EntitiesSection({{0, "LINE"}, {8, "Walls"}}));
    const std::string white = TraceOfFile(without.WidePath());
    const std::string red = TraceOfFile(withLayers.WidePath());
    EXPECT_NE(red, white);
    EXPECT_NE(red.find("RGB(255,0,0)"), std::string::npos);
    EXPECT_EQ(TraceOfFile(L"not there"), kLoadFailure);
    EXPECT_EQ(TraceOfFile(without.WidePath()), white);
    EXPECT_EQ(TraceOfFile(withLayers.WidePath()), red);
}

TEST(ImportEntry, FileIsReadAsItsBytesAreReadFromMemory)
{
    std::string text;
    for (int i = 0; i < 20000; ++i) // over more than one read
        text += Dxf({{0, "LINE"}, {10, i}, {11, 0.5}});
    text = Section("ENTITIES", text);
    const TempFile file(text);
    EXPECT_TRUE(TraceOfFile(file.WidePath()) == TraceOf(text));
}

TEST(ImportEntry, LineEndsOfBothKindsDrawTheSame)
{
    std::string withReturns;
    for (const char character : Drawing())
        withReturns += character == '\n' ? std::string("\r\n") : std::string(1, character);
    EXPECT_EQ(TraceOfFile(TempFile(withReturns).WidePath()), TraceOf(Drawing()));
}

TEST(ImportEntry, FileOfANameWithBlanksAndUmlautsIsOpened)
{
    const TempFolder folder;
    std::ofstream(folder.Path() / u8"Pl\u00E4ne des B\u00FCros.dxf", std::ios::binary) << Drawing();
    EXPECT_EQ(TraceOfFile(folder.Path().wstring() + L"/Pl\u00E4ne des B\u00FCros.dxf"), TraceOf(Drawing()));
}

TEST(ImportEntry, FileThatAnotherHasOpenForWritingIsRead)
{
    const TempFile file(Drawing());
    std::ofstream writer(file.Path(), std::ios::binary | std::ios::app);
    ASSERT_TRUE(writer.is_open());
    EXPECT_EQ(TraceOfFile(file.WidePath()), TraceOf(Drawing()));
}

TEST(ImportEntry, FileIsClosedWhenTheCallReturns)
{
    const TempFile file(Drawing());
    TraceOfFile(file.WidePath());
    EXPECT_TRUE(std::filesystem::remove(file.Path()));
    EXPECT_EQ(TraceOfFile(file.WidePath()), kLoadFailure);
}

TEST(ImportEntry, FileIsReadAndNotChanged)
{
    const TempFile file(Drawing());
    TraceOfFile(file.WidePath());
    EXPECT_EQ(BytesOf(file.Path()), Drawing());
}
