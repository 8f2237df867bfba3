// Lines that are too long and files that fail: each is reported with its line, right after it was read.
#include "support/Callbacks.h"
#include "support/Sources.h"

#include <gtest/gtest.h>

namespace {

using Calls = std::vector<std::string>;

Calls CallbacksOfSource(CDxfSource& source)
{
    CallbackReader reader;
    reader.ReadDxfSource(source);
    return reader.calls;
}

std::string Long(std::size_t size)
{
    return std::string(size, 'x');
}

} // namespace

TEST(LineTrouble, LongLineIsCutReportedAndReadPast)
{
    EXPECT_EQ(CallbacksOf(EntitiesSection({{0, "LINE"}, {8, Long(1024)}, {62, 1}})),
              (Calls{"OnError 0 10 CDxfRead Line longer than 1023 characters cut, Line:8",
                     "OnLine " + Long(1023)}));
}

TEST(LineTrouble, LineOf1023CharactersIsNotReported)
{
    EXPECT_EQ(CallbacksOf(EntitiesSection({{0, "LINE"}, {8, Long(1023)}})), (Calls{"OnLine " + Long(1023)}));
}

TEST(LineTrouble, EveryLongLineIsReportedWithItsOwnNumber)
{
    EXPECT_EQ(CallbacksOf(Section("HEADER", Lines({"9", Long(2000), "1", "x", Long(5000), "ok"}))),
              (Calls{"OnError 0 10 CDxfRead Line longer than 1023 characters cut, Line:6",
                     "OnError 0 10 CDxfRead Line longer than 1023 characters cut, Line:9"}));
}

TEST(LineTrouble, LongCodeLineIsReportedBeforeWhatTheReaderSaysOfIt)
{
    EXPECT_EQ(
        CallbacksOf(Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "POINT"}}) + Long(1500) + "\n0\nENDSEC\n"),
        (Calls{"OnError 0 10 CDxfRead Line longer than 1023 characters cut, Line:7",
               "OnError 0 3 ReadENTITIES_POINT Failed to read integer from '" + Long(1023) + "', Line:7",
               "OnError 0 5 ReadENTITIES_POINT() Failed to read line, Line:7",
               "OnError 0 6 0 - Unknown Object Type Name (8)",
               "OnError 0 3 Read_UNKNOWN() Failed to read integer from 'ENDSEC', Line:9"}));
}

TEST(LineTrouble, BlanksCountTowardsTheLengthOfALine)
{
    EXPECT_EQ(CallbacksOf(EntitiesSection({{0, "LINE"}, {8, "a" + std::string(1023, ' ')}})),
              (Calls{"OnError 0 10 CDxfRead Line longer than 1023 characters cut, Line:8", "OnLine a"}));
}

TEST(LineTrouble, MessageWithTwoLongestLinesIsWhole)
{
    const std::string marker(1023, 'm'), value(1023, 'v');
    EXPECT_EQ(CallbacksOf(EntitiesSection({{0, "LINE"}, {100, marker}, {"-2147483648", value}})),
              (Calls{"OnError 1 7 ReadENTITIES_COMMON Unknown Dimension type " + marker +
                         " ('-2147483648' = '" + value + "') Line:10",
                     "OnLine "}));
}

TEST(LineTrouble, ReadErrorIsReportedAndWhatWasReadIsDrawn)
{
    FailingReads source("0\nSECTION\n2\nENTITIES\n0\nLINE\n8\na\n0\n");
    EXPECT_EQ(CallbacksOfSource(source),
              (Calls{"OnError 0 11 CDxfRead Failed to read file, Line:10", "OnLine a"}));
}

TEST(LineTrouble, ReadErrorWithinAnEntityCountsAsTheEndOfTheFile)
{
    const std::string drawing = Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "LINE"}, {8, "a"}});
    FailingReads source(drawing);
    EXPECT_EQ(CallbacksOfSource(source),
              (Calls{"OnError 0 11 CDxfRead Failed to read file, Line:9",
                     "OnError 0 3 ReadENTITIES_LINE Failed to read integer from '', Line:9",
                     "OnError 0 5 ReadENTITIES_LINE() Failed to read line, Line:9", "OnLine a"}));
}

TEST(LineTrouble, ReadErrorAtTheFirstByteIsReported)
{
    FailingReads source("");
    EXPECT_EQ(CallbacksOfSource(source), (Calls{"OnError 0 11 CDxfRead Failed to read file, Line:1"}));
}

TEST(LineTrouble, CutAndReadErrorOfOneLineAreBothReported)
{
    const std::string text = Dxf({{0, "SECTION"}, {2, "HEADER"}}) + Long(3000);
    FailingReads source(text);
    EXPECT_EQ(CallbacksOfSource(source),
              (Calls{"OnError 0 10 CDxfRead Line longer than 1023 characters cut, Line:5",
                     "OnError 0 11 CDxfRead Failed to read file, Line:5"}));
}

TEST(LineTrouble, LineNumbersAreRightFarAfterTheFirstBuffer)
{
    std::string comments;
    for (int i = 0; i < 100000; ++i)
        comments += Dxf({{999, "comment"}});
    EXPECT_EQ(CallbacksOf(comments + Section("ODD", "")),
              (Calls{"OnError 0 2 ODD - Unknown Section Name Line (200004)"}));
}

TEST(LineTrouble, ReadersGetTheSameLinesWhateverAReadGives)
{
    const std::string text =
        Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "Door"}, {0, "LINE"}, {8, "a"}, {0, "ENDBLK"}})) +
        EntitiesSection({{0, "CIRCLE"}, {8, "b"}, {0, "SOLID"}, {8, "c"}, {0, "ARC"}, {8, "d"}, {999, "x"}});
    const Calls expected = CallbacksOf(text);
    EXPECT_EQ(expected.size(), 7u);
    for (std::size_t most = 1; most <= 70; ++most) {
        ShortReads source(text, most);
        EXPECT_EQ(CallbacksOfSource(source), expected) << most << " bytes a read";
    }
}
