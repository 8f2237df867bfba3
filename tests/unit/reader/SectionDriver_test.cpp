// From the first line to the callbacks: which sections are read, which are skipped, and how far.
#include "support/Callbacks.h"

#include <gtest/gtest.h>

namespace {

using Calls = std::vector<std::string>;

// A LINE on a layer, in an ENTITIES section; it shows that reading goes on at that place.
std::string LineOn(std::string_view layer)
{
    return Section("ENTITIES", Dxf({{0, "LINE"}, {8, layer}}));
}

const std::string kEof = Dxf({{0, "EOF"}});

} // namespace

TEST(SectionDriver, FileThatCannotBeOpenedGivesOneMessageAndNoOtherCallback)
{
    CallbackReader reader;
    reader.ReadDxfFile("there is no such file.dxf");
    EXPECT_EQ(reader.calls, (Calls{"OnError 0 1 Failed to load DXF file."}));
    EXPECT_EQ(reader.lineCount, 0);
    EXPECT_TRUE(reader.colorTable.empty());
}

TEST(SectionDriver, FilesWithoutSectionsGiveNoCallback)
{
    for (const char* const text : {"", "\n", "0\nEOF\n", "0\nEOF", "EOF\n", "0", "0\n", "garbage\n\n\nmore"})
        EXPECT_EQ(CallbacksOf(text), Calls()) << text;
}

TEST(SectionDriver, EveryLineIsCountedTheEmptyOneAtTheEndToo)
{
    const auto lineCount = [](std::string_view text) {
        CallbackReader reader;
        reader.ReadText(text);
        return reader.lineCount;
    };
    EXPECT_EQ(lineCount(""), 1);
    EXPECT_EQ(lineCount("a\nb"), 2);
    EXPECT_EQ(lineCount("a\nb\n"), 3);
    EXPECT_EQ(lineCount("a\r\n\r\nb\r\n"), 4);
    EXPECT_EQ(lineCount("a\nEOF\nnot read\n"), 2);
}

TEST(SectionDriver, ColoursAreThereWhenTheFileIsRead)
{
    CallbackReader reader;
    reader.ReadText(kEof);
    EXPECT_EQ(reader.colorTable.size(), 256u);
}

TEST(SectionDriver, LinesAreTrimmedOfTheSixBlanksBeforeTheyAreCompared)
{
    EXPECT_EQ(CallbacksOf("  0\n SECTION\t\n\v2\f\n\r ENTITIES \r\n 0\nLINE  \n  8\n a \n  0\n\tENDSEC\n"),
              (Calls{"OnLine a"}));
}

TEST(SectionDriver, OtherBlanksAreCharacters)
{
    EXPECT_EQ(CallbacksOf("\xA0"
                          "0\n" +
                          LineOn("a").substr(2)),
              Calls());
}

TEST(SectionDriver, ByteOrderMarkIsPartOfTheFirstLine)
{
    EXPECT_EQ(CallbacksOf("\xEF\xBB\xBF" + LineOn("a") + LineOn("b")), (Calls{"OnLine b"}));
    EXPECT_EQ(CallbacksOf("\xEF\xBB\xBF"
                          "999\ncomment\n" +
                          LineOn("a")),
              (Calls{"OnLine a"}));
}

TEST(SectionDriver, KeywordsAreComparedByCase)
{
    EXPECT_EQ(CallbacksOf(Dxf({{0, "Section"}, {2, "ENTITIES"}, {0, "LINE"}, {0, "ENDSEC"}})), Calls());
    EXPECT_EQ(CallbacksOf(Dxf({{0, "SECTION"}, {2, "entities"}, {0, "LINE"}, {0, "ENDSEC"}})),
              (Calls{"OnError 0 2 entities - Unknown Section Name Line (4)"}));
}

TEST(SectionDriver, CodesOfTheDriverAreComparedAsText)
{
    EXPECT_EQ(CallbacksOf("00\n" + LineOn("a").substr(2)), Calls());
    EXPECT_EQ(CallbacksOf("0\nSECTION\n02\nENTITIES\n0\nLINE\n0\nENDSEC\n"), Calls());
}

TEST(SectionDriver, OtherLinesBetweenSectionsArePassedOver)
{
    EXPECT_EQ(CallbacksOf("999\ncomment\n\n" + LineOn("a") + Dxf({{0, "NOSECTION"}}) + "0\nSECTION\n3\n" +
                          LineOn("b") + kEof),
              (Calls{"OnLine a", "OnLine b"}));
}

TEST(SectionDriver, EofEndsTheReadingOnlyWhereAZeroIsExpected)
{
    EXPECT_EQ(CallbacksOf("EOF\n" + LineOn("a")), Calls());
    EXPECT_EQ(CallbacksOf(Dxf({{0, "EOF"}}) + LineOn("a")), (Calls{"OnLine a"}));
    EXPECT_EQ(CallbacksOf("0\nSECTION\nEOF\n" + LineOn("a")), (Calls{"OnLine a"}));
    EXPECT_EQ(CallbacksOf(Dxf({{0, "SECTION"}, {2, "EOF"}}) + LineOn("a")),
              (Calls{"OnError 0 2 EOF - Unknown Section Name Line (4)", "OnLine a"}));
    EXPECT_EQ(CallbacksOf(LineOn("a") + "EOF\n" + LineOn("b")), (Calls{"OnLine a"}));
}

TEST(SectionDriver, UnknownSectionIsReportedWithItsNameAndLine)
{
    EXPECT_EQ(CallbacksOf(LineOn("a") + Section("ACDSDATA", Dxf({{0, "RECORD"}})) + LineOn("b")),
              (Calls{"OnError 0 2 ACDSDATA - Unknown Section Name Line (14)", "OnLine a", "OnLine b"}));
}

TEST(SectionDriver, SectionsWithinAnUnknownSectionAreFound)
{
    EXPECT_EQ(CallbacksOf("0\nSECTION\n2\nODD\n0\n" + LineOn("not seen").substr(2) + LineOn("a")),
              (Calls{"OnError 0 2 ODD - Unknown Section Name Line (4)", "OnLine not seen", "OnLine a"}));
}

TEST(SectionDriver, FileThatStopsBeforeASectionsNameHasASectionWithAnEmptyName)
{
    EXPECT_EQ(CallbacksOf("0\nSECTION\n2\n"), (Calls{"OnError 0 2  - Unknown Section Name Line (4)"}));
    EXPECT_EQ(CallbacksOf("0\nSECTION\n2"), (Calls{"OnError 0 2  - Unknown Section Name Line (4)"}));
    EXPECT_EQ(CallbacksOf(Dxf({{0, "SECTION"}})), Calls());
    EXPECT_EQ(CallbacksOf("0\nSECTION"), Calls());
    EXPECT_EQ(CallbacksOf("0\n"), Calls());
}

TEST(SectionDriver, LoneZeroThatEndsTheFileIsNotLookedAt)
{
    // Read together with the end of the file, the first line leaves the loop before it begins.
    CallbackReader reader;
    reader.ReadText("0");
    EXPECT_EQ(reader.lineCount, 1);
}

TEST(SectionDriver, HeaderClassesObjectsAndThumbnailimageAreSkipped)
{
    for (const std::string_view name : {"HEADER", "CLASSES", "OBJECTS", "THUMBNAILIMAGE"})
        EXPECT_EQ(CallbacksOf(Section(name, Dxf({{9, "$ACADVER"},
                                                 {0, "LINE"},
                                                 {0, "SECTION"},
                                                 {2, "ODD"},
                                                 {0, "EOF"},
                                                 {"EOF", "x"}})) +
                              LineOn("a")),
                  (Calls{"OnLine a"}))
            << name;
}

TEST(SectionDriver, EndsecAsAValueEndsASkippedSection)
{
    EXPECT_EQ(CallbacksOf(Dxf({{0, "SECTION"}, {2, "HEADER"}, {9, "$NAME"}, {1, "ENDSEC"}}) + LineOn("a") +
                          Dxf({{0, "ENDSEC"}})),
              (Calls{"OnLine a"}));
}

TEST(SectionDriver, FirstLineOfASkippedSectionIsNotCompared)
{
    for (const std::string_view name : {"HEADER", "CLASSES", "OBJECTS", "THUMBNAILIMAGE"})
        EXPECT_EQ(CallbacksOf("0\nSECTION\n2\n" + std::string(name) + "\nENDSEC\n" + LineOn("skipped") +
                              LineOn("a")),
                  (Calls{"OnLine a"}))
            << name;
}

TEST(SectionDriver, SkippedSectionWithoutAnEndTakesTheRestOfTheFile)
{
    for (const std::string_view name : {"HEADER", "CLASSES", "OBJECTS", "THUMBNAILIMAGE", "TABLES"})
        EXPECT_EQ(CallbacksOf(Dxf({{0, "SECTION"}, {2, name}, {9, "$A"}, {1, "x"}, {0, "EOF"}})), Calls())
            << name;
}

TEST(SectionDriver, TablesSectionWithoutATableSkipsTheNextSection)
{
    EXPECT_EQ(CallbacksOf(Section("TABLES", "") + LineOn("skipped") + LineOn("a")), (Calls{"OnLine a"}));
}

TEST(SectionDriver, TablesSectionThatDoesNotBeginWithATableIsSkipped)
{
    EXPECT_EQ(CallbacksOf(Section("TABLES", Dxf({{0, "LAYER"}, {0, "TABLE"}, {2, "x"}})) + LineOn("a")),
              (Calls{"OnLine a"}));
    EXPECT_EQ(CallbacksOf(Section("TABLES", Dxf({{999, "comment"}, {0, "TABLE"}})) + LineOn("a")),
              (Calls{"OnLine a"}));
}

TEST(SectionDriver, LineInPlaceOfATablesZeroIsNotCompared)
{
    EXPECT_EQ(CallbacksOf("0\nSECTION\n2\nTABLES\nENDSEC\n" + LineOn("skipped") + LineOn("a")),
              (Calls{"OnLine a"}));
}

TEST(SectionDriver, SectionsComeInAnyOrderAndAnyNumber)
{
    const std::string blocks = Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "Door"}, {0, "ENDBLK"}}));
    const std::string tables = Section("TABLES", Dxf({{0, "TABLE"}, {2, "LAYER"}, {0, "ENDTAB"}}));
    EXPECT_EQ(CallbacksOf(LineOn("a") + blocks + tables + LineOn("b") + blocks + tables + kEof),
              (Calls{"OnBlockBegin Door", "OnBlockEnd Door", "OnBlockBegin Door", "OnBlockEnd Door",
                     "OnLine a", "OnLine b"}));
}

TEST(SectionDriver, ReadingGoesOnAfterATablesSection)
{
    EXPECT_EQ(
        CallbacksOf(
            Section(
                "TABLES",
                Dxf({{0, "TABLE"}, {2, "LAYER"}, {0, "LAYER"}, {100, "x"}, {2, "Walls"}, {0, "ENDTAB"}})) +
            LineOn("a")),
        (Calls{"OnLine a"}));
}

TEST(SectionDriver, EntitiesSectionWithoutEntitiesIsEmpty)
{
    EXPECT_EQ(CallbacksOf(Section("ENTITIES", "") + LineOn("a")), (Calls{"OnLine a"}));
}

TEST(SectionDriver, FirstLineOfAnEntitiesSectionIsNotCompared)
{
    EXPECT_EQ(CallbacksOf("0\nSECTION\n2\nENTITIES\nENDSEC\nLINE\n8\na\n0\nENDSEC\n"), (Calls{"OnLine a"}));
}

TEST(SectionDriver, FirstLineOfABlocksSectionIsNotCompared)
{
    EXPECT_EQ(CallbacksOf("0\nSECTION\n2\nBLOCKS\nENDSEC\nBLOCK\n2\nDoor\n0\nENDBLK\n0\nENDSEC\n"),
              (Calls{"OnBlockBegin Door", "OnBlockEnd Door"}));
}

TEST(SectionDriver, EntityWhoseTypeNameEndsTheFileIsStillMade)
{
    EXPECT_EQ(CallbacksOf("0\nSECTION\n2\nENTITIES\n0\nLINE"),
              (Calls{"OnError 0 5 ReadENTITIES_LINE() Failed to read line, Line:6", "OnLine "}));
}

TEST(SectionDriver, TypeNameThatEndsTheFileAfterAnEntityIsNotLookedAt)
{
    EXPECT_EQ(CallbacksOf("0\nSECTION\n2\nENTITIES\n0\nLINE\n0\nCIRCLE"), (Calls{"OnLine "}));
}

TEST(SectionDriver, FileThatStopsAtTheFirstTypeNameReportsAnEmptyName)
{
    EXPECT_EQ(CallbacksOf("0\nSECTION\n2\nENTITIES\n0\n"),
              (Calls{"OnError 0 6  - Unknown Object Type Name (6)"}));
    EXPECT_EQ(CallbacksOf(Dxf({{0, "SECTION"}, {2, "ENTITIES"}})),
              (Calls{"OnError 0 6  - Unknown Object Type Name (6)"}));
    EXPECT_EQ(CallbacksOf("0\nSECTION\n2\nENTITIES"), (Calls{"OnError 0 6  - Unknown Object Type Name (6)"}));
}

TEST(SectionDriver, FileThatStopsAfterALineEndQuotesTheEmptyLineAfterIt)
{
    EXPECT_EQ(CallbacksOf(Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "LINE"}, {8, "a"}})),
              (Calls{"OnError 0 3 ReadENTITIES_LINE Failed to read integer from '', Line:9",
                     "OnError 0 5 ReadENTITIES_LINE() Failed to read line, Line:9", "OnLine a"}));
}

TEST(SectionDriver, FileThatStopsWithoutALineEndGivesNoIntegerMessage)
{
    EXPECT_EQ(CallbacksOf("0\nSECTION\n2\nENTITIES\n0\nLINE\n8\na"),
              (Calls{"OnError 0 5 ReadENTITIES_LINE() Failed to read line, Line:8", "OnLine a"}));
}

TEST(SectionDriver, ValueLineAfterACodeThatEndsTheFileIsReadAndCounted)
{
    EXPECT_EQ(CallbacksOf("0\nSECTION\n2\nENTITIES\n0\nLINE\n8\na\n8"),
              (Calls{"OnError 0 5 ReadENTITIES_LINE() Failed to read line, Line:10", "OnLine "}));
}

TEST(SectionDriver, Byte1AEndsTheFile)
{
    EXPECT_EQ(CallbacksOf(LineOn("a") + "\x1A" + LineOn("b")), (Calls{"OnLine a"}));
}

TEST(SectionDriver, LineEndsOfBothKindsReadTheSame)
{
    const std::string text = LineOn("a") + Section("ODD", "") + LineOn("b") + kEof;
    std::string withReturns;
    for (const char character : text)
        withReturns += character == '\n' ? std::string("\r\n") : std::string(1, character);
    EXPECT_EQ(CallbacksOf(withReturns), CallbacksOf(text));
    EXPECT_EQ(CallbacksOf(text).size(), 3u);
}
