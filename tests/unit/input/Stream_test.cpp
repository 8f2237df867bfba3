// The stream's facts, one by one. That it agrees with a library's stream is shown in StreamModel_test.cpp.
#include "input/CDxfMemory.h"
#include "input/CDxfStream.h"
#include "support/Sources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

// Bytes around a line are read, so only the stream's own buffer makes lines.
static_assert(!std::is_constructible_v<CDxfLine, std::string_view>);
static_assert(!std::is_constructible_v<CDxfLine, const char*>);
static_assert(!std::is_constructible_v<CDxfLine, const char*, std::size_t>);

namespace {

using Texts = std::vector<std::string>;
using Sizes = std::initializer_list<std::size_t>;

// Every line up to the one that meets the end of the file, each followed by a mark for what the stream says
// about it: "<eof>", "<cut>", "<failed>".
Texts LinesOf(CDxfSource& source)
{
    CDxfStream stream(source);
    Texts lines;
    while (!stream.eof()) {
        std::string line(stream.getline());
        if (stream.HasTrouble()) {
            line += stream.TakeLineWasCut() ? "<cut>" : "";
            line += stream.TakeReadFailed() ? "<failed>" : "";
        }
        lines.push_back(line + (stream.eof() ? "<eof>" : ""));
    }
    return lines;
}

Texts LinesOf(std::string_view bytes)
{
    CDxfMemory memory(bytes);
    return LinesOf(memory);
}

std::string Repeat(std::size_t count, char character = 'x')
{
    return std::string(count, character);
}

} // namespace

TEST(Stream, FileThatEndsWithALineFeedGivesAnEmptyLineWithTheEndOfFile)
{
    EXPECT_EQ(LinesOf("0\nEOF\n"), (Texts{"0", "EOF", "<eof>"}));
}

TEST(Stream, LastLineWithoutALineFeedComesWithTheEndOfFile)
{
    EXPECT_EQ(LinesOf("0\nEOF"), (Texts{"0", "EOF<eof>"}));
}

TEST(Stream, EmptyFileGivesOneEmptyLineWithTheEndOfFile)
{
    EXPECT_EQ(LinesOf(""), (Texts{"<eof>"}));
}

TEST(Stream, EmptyLinesCount)
{
    EXPECT_EQ(LinesOf("\n\n\na\n\n"), (Texts{"", "", "", "a", "", "<eof>"}));
}

TEST(Stream, IsNotAtTheEndBeforeItHasMetIt)
{
    CDxfMemory memory("");
    CDxfStream stream(memory);
    EXPECT_FALSE(stream.eof());
    stream.getline();
    EXPECT_TRUE(stream.eof());
}

TEST(Stream, AfterTheEndLinesStayEmptyAndTheFlagStays)
{
    CDxfMemory memory("last");
    CDxfStream stream(memory);
    EXPECT_EQ(stream.getline(), "last");
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(stream.getline(), "");
        EXPECT_TRUE(stream.eof());
        EXPECT_FALSE(stream.HasTrouble());
    }
}

// How many lines a file has: the empty one after the last line feed is none.
TEST(Stream, IsExhaustedWithTheFirstLineThatIsNoneOfTheFiles)
{
    const std::pair<std::string_view, std::size_t> cases[] = {
        {"", 0}, {"\n", 1}, {"0", 1}, {"0\nEOF\n", 2}, {"0\nEOF", 2}, {"0\n\n", 2}, {"0\n\x1A\nEOF", 1}};
    for (const auto& [bytes, count] : cases) {
        CDxfMemory memory(bytes);
        CDxfStream stream(memory);
        std::size_t lines = 0;
        for (stream.getline(); !stream.IsExhausted(); stream.getline())
            ++lines;
        EXPECT_EQ(lines, count) << bytes;
        EXPECT_TRUE(stream.eof()) << bytes;
    }
}

TEST(Stream, LastLineOfANulIsNotExhausted)
{
    CDxfMemory memory(std::string_view("\0x", 2));
    CDxfStream stream(memory);
    EXPECT_EQ(stream.getline(), "");
    EXPECT_FALSE(stream.IsExhausted());
    EXPECT_EQ(stream.getline(), "");
    EXPECT_TRUE(stream.IsExhausted());
}

TEST(Stream, OverlongLastLineIsNotExhausted)
{
    const std::string bytes = Repeat(1 << 18);
    CDxfMemory memory(bytes);
    CDxfStream stream(memory);
    EXPECT_EQ(stream.getline().size(), CDxfStream::kLongestLine);
    EXPECT_FALSE(stream.IsExhausted());
    stream.getline();
    EXPECT_TRUE(stream.IsExhausted());
}

TEST(Stream, CarriageReturnRightBeforeALineFeedIsDropped)
{
    EXPECT_EQ(LinesOf("a\r\n\r\nb\r\n"), (Texts{"a", "", "b", "<eof>"}));
}

TEST(Stream, OnlyOneCarriageReturnIsDropped)
{
    EXPECT_EQ(LinesOf("a\r\r\n"), (Texts{"a\r", "<eof>"}));
}

TEST(Stream, CarriageReturnElsewhereIsACharacter)
{
    EXPECT_EQ(LinesOf("a\rb\n\rc\nd\r"), (Texts{"a\rb", "\rc", "d\r<eof>"}));
}

TEST(Stream, CarriageReturnAndLineFeedOfDifferentReadsBelongTogether)
{
    ShortReads source("a\r\nb\r\n", 2);
    EXPECT_EQ(LinesOf(source), (Texts{"a", "b", "<eof>"}));
}

TEST(Stream, LinesKeepTheirBlanksAndTheirByteOrderMark)
{
    EXPECT_EQ(LinesOf("\xEF\xBB\xBF"
                      "0\n  \tx \n"),
              (Texts{"\xEF\xBB\xBF"
                     "0",
                     "  \tx ", "<eof>"}));
}

TEST(Stream, Byte1AEndsTheFile)
{
    EXPECT_EQ(LinesOf("a\nb\x1A"
                      "c\nd\n"),
              (Texts{"a", "b<eof>"}));
    EXPECT_EQ(LinesOf("a\n\x1A\nb\n"), (Texts{"a", "<eof>"}));
    EXPECT_EQ(LinesOf("\x1A"), (Texts{"<eof>"}));
}

TEST(Stream, Byte1AEndsTheFileWhereverAReadEnds)
{
    for (std::size_t most = 1; most <= 6; ++most) {
        ShortReads source("ab\nc\x1A\nd\n", most);
        EXPECT_EQ(LinesOf(source), (Texts{"ab", "c<eof>"})) << most << " bytes a read";
    }
}

TEST(Stream, NothingIsReadAfterByte1A)
{
    EXPECT_EQ(LinesOf("a\x1A" + Repeat(300000, '\n')), (Texts{"a<eof>"}));
}

TEST(Stream, NulEndsTheTextOfItsLineAlone)
{
    using namespace std::string_view_literals;
    EXPECT_EQ(LinesOf("a\0b\nc\n\0\nd\0"sv), (Texts{"a", "c", "", "d<eof>"}));
}

TEST(Stream, NulOfAnEarlierReadEndsItsLineToo)
{
    using namespace std::string_view_literals;
    for (std::size_t most = 1; most <= 8; ++most) {
        ShortReads source("ab\0cd\r\nef\n"sv, most);
        EXPECT_EQ(LinesOf(source), (Texts{"ab", "ef", "<eof>"})) << most << " bytes a read";
    }
}

TEST(Stream, LineOf1023BytesIsWholeAndLongerOnesAreCut)
{
    for (const std::size_t size : Sizes{1021, 1022, 1023, 1024, 1025, 1026}) {
        const std::string cut = Repeat(std::min<std::size_t>(size, 1023)) + (size > 1023 ? "<cut>" : "");
        EXPECT_EQ(LinesOf(Repeat(size) + "\nnext\n"), (Texts{cut, "next", "<eof>"})) << size;
        EXPECT_EQ(LinesOf(Repeat(size) + "\r\nnext\n"), (Texts{cut, "next", "<eof>"})) << size;
        EXPECT_EQ(LinesOf(Repeat(size)), (Texts{cut + "<eof>"})) << size;
        EXPECT_EQ(LinesOf("first\n" + Repeat(size) + "\n"), (Texts{"first", cut, "<eof>"})) << size;
    }
}

TEST(Stream, LongLinesAreCutAlikeWhateverAReadGives)
{
    for (const std::size_t most : Sizes{1, 2, 3, 63, 64, 65, 511, 1022, 1023, 1024, 1025, 1026, 2048})
        for (const std::size_t size : Sizes{1022, 1023, 1024, 1025, 2047, 2048, 2049, 5000}) {
            const std::string cut = Repeat(std::min<std::size_t>(size, 1023)) + (size > 1023 ? "<cut>" : "");
            const std::string lines = Repeat(size) + "\r\nnext\n" + Repeat(size) + "\nlast";
            ShortReads source(lines, most);
            EXPECT_EQ(LinesOf(source), (Texts{cut, "next", cut, "last<eof>"}))
                << size << " bytes, " << most << " a read";
        }
}

TEST(Stream, CarriageReturnIsDroppedBeforeALineIsCut)
{
    EXPECT_EQ(LinesOf(Repeat(1023) + "\r\n"), (Texts{Repeat(1023), "<eof>"}));
    EXPECT_EQ(LinesOf(Repeat(1022) + "\r\r\n"), (Texts{Repeat(1022) + "\r", "<eof>"}));
    EXPECT_EQ(LinesOf(Repeat(1023) + "\r\r\n"), (Texts{Repeat(1023) + "<cut>", "<eof>"}));
}

TEST(Stream, CarriageReturnThatEndsTheFileCountsAsAByteOfItsLine)
{
    EXPECT_EQ(LinesOf(Repeat(1022) + "\r"), (Texts{Repeat(1022) + "\r<eof>"}));
    EXPECT_EQ(LinesOf(Repeat(1023) + "\r"), (Texts{Repeat(1023) + "<cut><eof>"}));
}

TEST(Stream, NulOfALongLineShortensItAndIsStillReportedAsCut)
{
    const std::string line = "ab" + std::string(1, '\0') + Repeat(2000);
    EXPECT_EQ(LinesOf(line + "\nnext\n"), (Texts{"ab<cut>", "next", "<eof>"}));
}

TEST(Stream, Byte1AInTheDroppedRestOfALineEndsTheFile)
{
    EXPECT_EQ(LinesOf(Repeat(3000) + "\x1A\nnext\n"), (Texts{Repeat(1023) + "<cut><eof>"}));
    EXPECT_EQ(LinesOf(Repeat(300000) + "\x1A\nnext\n"), (Texts{Repeat(1023) + "<cut><eof>"}));
}

TEST(Stream, LineLongerThanAnyBufferIsCutAndTheNextIsWhole)
{
    for (const std::size_t size : Sizes{131071, 131072, 131073, 262143, 262144, 262145, 1000000})
        EXPECT_EQ(LinesOf("a\n" + Repeat(size) + "\nnext\n"),
                  (Texts{"a", Repeat(1023) + "<cut>", "next", "<eof>"}))
            << size;
}

TEST(Stream, EachLongLineIsReportedOnce)
{
    CDxfMemory memory(std::string_view("short\n"));
    CDxfStream untroubled(memory);
    untroubled.getline();
    EXPECT_FALSE(untroubled.HasTrouble());

    const std::string bytes = Repeat(1024) + "\nshort\n";
    CDxfMemory longLine(bytes);
    CDxfStream stream(longLine);
    stream.getline();
    EXPECT_TRUE(stream.HasTrouble());
    EXPECT_TRUE(stream.TakeLineWasCut());
    EXPECT_FALSE(stream.TakeLineWasCut());
    EXPECT_FALSE(stream.HasTrouble());
    stream.getline();
    EXPECT_FALSE(stream.HasTrouble());
}

TEST(Stream, ANulThatEndsALinesTextIsNoTroubleButKnown)
{
    using namespace std::string_view_literals;
    CDxfMemory memory("a\0b\nc\n"sv);
    CDxfStream stream(memory);
    EXPECT_FALSE(stream.LineHadNul());
    EXPECT_EQ(stream.getline(), "a");
    EXPECT_FALSE(stream.HasTrouble());
    EXPECT_TRUE(stream.LineHadNul());
    EXPECT_TRUE(stream.TakeLineHadNul());
    EXPECT_FALSE(stream.LineHadNul());
    EXPECT_EQ(stream.getline(), "c");
    EXPECT_FALSE(stream.TakeLineHadNul());
}

TEST(Stream, ReadErrorIsReportedOnceAndCountsAsTheEndOfTheFile)
{
    FailingReads source("a\nbc");
    CDxfStream stream(source);
    EXPECT_EQ(stream.getline(), "a");
    EXPECT_FALSE(stream.HasTrouble());
    EXPECT_EQ(stream.getline(), "bc");
    EXPECT_TRUE(stream.eof());
    EXPECT_TRUE(stream.TakeReadFailed());
    EXPECT_EQ(stream.getline(), "");
    EXPECT_FALSE(stream.HasTrouble());
}

TEST(Stream, ReadErrorAtOnceGivesAnEmptyLine)
{
    FailingReads source("");
    EXPECT_EQ(LinesOf(source), (Texts{"<failed><eof>"}));
}

TEST(Stream, ReadErrorWithinALongLineIsReportedBesideTheCut)
{
    FailingReads source(std::string_view("a\n"));
    EXPECT_EQ(LinesOf(source), (Texts{"a", "<failed><eof>"}));
    const std::string bytes = Repeat(5000);
    FailingReads longLine(bytes);
    EXPECT_EQ(LinesOf(longLine), (Texts{Repeat(1023) + "<cut><failed><eof>"}));
}
