#include "prepare/pairs/PairReader.h"

#include "input/CDxfMemory.h"
#include "support/Dxf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace prepare {
namespace {

// Gives only a few bytes at once, as a pipe does.
class SlowSource final : public CDxfSource {
public:
    SlowSource(std::string_view bytes, std::size_t most) : m_memory(bytes), m_most(most) {}
    std::ptrdiff_t Read(char* bytes, std::size_t size) override
    {
        return m_memory.Read(bytes, std::min(size, m_most));
    }

private:
    CDxfMemory m_memory;
    std::size_t m_most;
};

class FailingSource final : public CDxfSource {
public:
    explicit FailingSource(std::string_view bytes) : m_memory(bytes) {}
    std::ptrdiff_t Read(char* bytes, std::size_t size) override
    {
        const std::ptrdiff_t count = m_memory.Read(bytes, size);
        return count == 0 ? -1 : count;
    }

private:
    CDxfMemory m_memory;
};

// Every pair as "line code value;".
std::string ReadAll(PairReader& reader)
{
    std::string all;
    while (reader.Next())
        all += std::to_string(reader.Line()) + " " + std::to_string(reader.Code()) + " " +
               std::string(reader.Value()) + ";";
    return all;
}

std::string ReadAll(std::string_view text)
{
    CDxfMemory memory(text);
    PairReader reader(memory);
    return ReadAll(reader);
}

std::string Utf16(std::u16string_view text, bool isBigEndian)
{
    std::string bytes = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char16_t unit : text) {
        const char low = static_cast<char>(unit & 0xFF), high = static_cast<char>(unit >> 8);
        bytes += isBigEndian ? high : low;
        bytes += isBigEndian ? low : high;
    }
    return bytes;
}

// As a program leaves them that makes two line ends of "\r\n", or takes "\n\r" for two.
TEST(PairReader, AnEmptyLineAfterEachLineIsLeftOut)
{
    for (const std::string end : {"\n\n", "\r\n\r\n", "\n\r", "\r\r"}) {
        std::string text;
        for (const char* const line :
             {"  0", "SECTION", "2", "ENTITIES", "0", "TEXT", "1", "", "8", "a", "0", "EOF"})
            text += line + end;
        for (const std::size_t most : {std::size_t{1}, std::size_t{7}, text.size()}) {
            SlowSource slow(text, most);
            PairReader reader(slow);
            EXPECT_EQ(ReadAll(reader), "1 0 SECTION;5 2 ENTITIES;9 0 TEXT;13 1 ;17 8 a;") << text;
            EXPECT_TRUE(reader.HasSpacedLines());
            EXPECT_TRUE(reader.HasEofPair());
            EXPECT_EQ(reader.Lines(), 23U);
            EXPECT_EQ(reader.SkippedLines().count, 0U);
        }
    }
}

TEST(PairReader, DoubledLineEndsCanBeKept)
{
    CDxfMemory memory("0\n\nSECTION\n\n2\n\nENTITIES\n\n");
    PairReader reader(memory, TextSource::DoubledEnds::Kept);
    EXPECT_EQ(ReadAll(reader), "1 0 ;5 2 ;");
    EXPECT_FALSE(reader.HasSpacedLines());
}

TEST(PairReader, EmptyValuesAreNoEmptyLinesAfterEachLine)
{
    const std::string comments = "999\n\n999\n\n999\n\n";
    EXPECT_EQ(ReadAll(comments + "0\nLINE\n8\n\n62\n\n0\nEOF\n"), "7 0 LINE;9 8 ;11 62 ;");
    EXPECT_EQ(ReadAll("0\n\nSECTION\n2\nENTITIES\n0\nEOF\n"), "1 0 ;4 2 ENTITIES;");
}

TEST(PairReader, PairsHaveTheLineOfTheirCodeAndTheirValueAsItIs)
{
    EXPECT_EQ(ReadAll("  0\nSECTION\n  1\n  two blanks \n"), "1 0 SECTION;3 1   two blanks ;");
}

TEST(PairReader, LinesEndInAnyWay)
{
    const std::string pairs = "1 0 LINE;3 8 Walls;5 10 1.5;";
    for (const std::string end : {"\n", "\r\n", "\r", "\r\r\n"})
        for (const std::size_t most : {1u, 2u, 3u, 7u, 1000u}) {
            const std::string text =
                "0" + end + "LINE" + end + "8" + end + "Walls" + end + "10" + end + "1.5" + end;
            SlowSource source(text, most);
            PairReader reader(source);
            EXPECT_EQ(ReadAll(reader), pairs) << most;
        }
}

TEST(PairReader, EmptyValuesCountAsLinesWhateverTheLineEnd)
{
    for (const std::string end : {"\n", "\r\n", "\r"})
        EXPECT_EQ(ReadAll("1" + end + end + "8" + end + "0" + end), "1 1 ;3 8 0;") << end.size();
}

TEST(PairReader, ManyCarriageReturnsInARunAreAsManyLines)
{
    const std::string text = std::string(100'000, '\r') + "0\rLINE\r";
    SlowSource source(text, 1000);
    PairReader reader(source);
    EXPECT_EQ(ReadAll(reader), "100001 0 LINE;");
}

TEST(PairReader, CodesMayHaveBlanksOnEitherSide)
{
    EXPECT_EQ(ReadAll("     0  \nLINE\n\t62\n7\n"), "1 0 LINE;3 62 7;");
    EXPECT_EQ(ReadAll("1071\n5\n-4\nAND\n"), "1 1071 5;3 -4 AND;");
}

TEST(PairReader, TheFileMayEndInTheMiddleOfALineOrAPair)
{
    EXPECT_EQ(ReadAll("0\nLINE"), "1 0 LINE;");
    EXPECT_EQ(ReadAll("0\nLINE\n8"), "1 0 LINE;");
    EXPECT_EQ(ReadAll("0\nLINE\n8\n"), "1 0 LINE;");
    EXPECT_EQ(ReadAll(""), "");
}

TEST(PairReader, NothingAfterThePairEofIsRead)
{
    CDxfMemory memory("0\nLINE\n  0\nEOF \n8\nx\n0\nCIRCLE\n");
    PairReader reader(memory);
    EXPECT_EQ(ReadAll(reader), "1 0 LINE;");
    EXPECT_TRUE(reader.HasEofPair());
    EXPECT_FALSE(reader.Next());
    EXPECT_EQ(reader.Code(), 0);
    EXPECT_TRUE(reader.Value().empty());
    EXPECT_EQ(reader.SkippedLines().count, 0u);
}

TEST(PairReader, AFileWithoutThePairEofSaysSo)
{
    CDxfMemory memory("0\nENDSEC\n\n\n");
    PairReader reader(memory);
    EXPECT_EQ(ReadAll(reader), "1 0 ENDSEC;");
    EXPECT_FALSE(reader.HasEofPair());
    EXPECT_EQ(reader.SkippedLines().count, 0u); // blank lines at the end do no harm
}

TEST(PairReader, CommentsAreLeftOut)
{
    EXPECT_EQ(ReadAll("999\nmade by hand\n0\nLINE\n999\n0\n999\nEOF\n8\nx\n"), "3 0 LINE;9 8 x;");
    std::string many;
    for (int i = 0; i < 300'000; ++i)
        many += "999\nx\n";
    EXPECT_EQ(ReadAll(many + "0\nLINE\n"), "600001 0 LINE;");
}

TEST(PairReader, TheByteThatEndsAFileDoesSoOnlyAtTheBeginOfALine)
{
    EXPECT_EQ(ReadAll("0\nLINE\n\x1A\n8\nx\n"), "1 0 LINE;");
    EXPECT_EQ(ReadAll("0\r\nLINE\r\n\x1A"), "1 0 LINE;");
    EXPECT_EQ(ReadAll("1\na\x1A"
                      "b\n8\nx\n"),
              "1 1 a b;3 8 x;");
    SlowSource source("1\na\x1A"
                      "b\n\x1A"
                      "8\nx\n",
                      1);
    PairReader reader(source);
    EXPECT_EQ(ReadAll(reader), "1 1 a b;");
    // Beyond what is looked at first.
    const std::string text = "999\n" + std::string(1000, 'x') + "\n1\na\x1A" + "b\n8\nx\n\x1A" + "0\nLINE\n";
    SlowSource late(text, 1);
    PairReader lateReader(late);
    EXPECT_EQ(ReadAll(lateReader), "3 1 a b;5 8 x;");
}

TEST(PairReader, ByteOrderMarkOfUtf8IsDropped)
{
    EXPECT_EQ(ReadAll("\xEF\xBB\xBF  0\nLINE\n"), "1 0 LINE;");
}

TEST(PairReader, Utf16BecomesUtf8InEitherByteOrder)
{
    for (const bool isBigEndian : {false, true})
        for (const std::size_t most : {1u, 3u, 1000u}) {
            const std::string bytes = Utf16(u"0\r\nTEXT\r\n1\r\n\u00C4\u20AC\U0001F600\r\n", isBigEndian);
            SlowSource source(bytes, most);
            PairReader reader(source);
            EXPECT_EQ(ReadAll(reader), "1 0 TEXT;3 1 \xC3\x84\xE2\x82\xAC\xF0\x9F\x98\x80;");
        }
}

TEST(PairReader, SurrogatesAloneBecomeTheReplacementCharacter)
{
    const char16_t text[] = {u'1', u'\n', 0xD800, u'a', 0xDC00, u'\n', u'1', u'\n', 0xD801, 0};
    EXPECT_EQ(ReadAll(Utf16(text, false)), "1 1 \xEF\xBF\xBD"
                                           "a\xEF\xBF\xBD;3 1 \xEF\xBF\xBD;");
}

std::string Bytes(std::initializer_list<int> values)
{
    std::string bytes;
    for (const int value : values)
        bytes += static_cast<char>(value);
    return bytes;
}

const std::string kSentinel("AutoCAD Binary DXF\r\n\x1A\0", 22);

TEST(PairReader, BinaryDrawingsWithCodesOfOneByteBecomeText)
{
    const std::string text =
        kSentinel + Bytes({0, 'L', 'I', 'N', 'E', 0, 8, 'a', '\n', 'b', 0, 62, 0xFE, 0xFF, 10}) +
        Bytes({0, 0, 0, 0, 0, 0, 0xF8, 0x3F, 0xFF, 0xE8, 0x03, 'X', 0, 0xFF, 0xEC, 0x03, 2, 1}) +
        Bytes({0xAB, 0, 'E', 'O', 'F', 0, 'j', 'u', 'n', 'k'});
    for (const std::size_t most : {1u, 3u, 1000u}) {
        SlowSource source(text, most);
        PairReader reader(source);
        EXPECT_EQ(ReadAll(reader), "1 0 LINE;3 8 a b;5 62 -2;7 10 1.5;9 1000 X;11 1004 01AB;");
        EXPECT_TRUE(reader.HasEofPair());
    }
}

TEST(PairReader, LineFeedsInBinaryTextsBecomeTheirCode)
{
    const std::string text = kSentinel +
                             Bytes({0, 'M', 0, 1, 'a', '\n', 'b', 0, 3, '\r', '\n', 0, 7, 'c', '\n', 0}) +
                             Bytes({0xFF, 0x30, 0x01, 'd', '\n', 0, 0xFF, 0x31, 0x01, 'e', '\n', 0});
    CDxfMemory memory(text);
    PairReader reader(memory);
    EXPECT_EQ(ReadAll(reader), "1 0 M;3 1 a^Jb;5 3  ^J;7 7 c ;9 304 d^J;11 305 e ;");
}

TEST(PairReader, BinaryDrawingsWithCodesOfTwoBytesBecomeText)
{
    const std::string text = kSentinel +
                             Bytes({0, 0, 'L', 0, 90, 0, 1, 2, 0, 0, 0x22, 0x01, 1, 160, 0, 1, 0, 0}) +
                             Bytes({0, 0, 1, 0, 0, 0x36, 0x01, 1, 0xF0, 0x2F, 0x04, 0xFF, 0xFF, 0xFF, 0xFF}) +
                             Bytes({0, 0, 'E', 'O', 'F', 0});
    for (const std::size_t most : {1u, 3u, 1000u}) {
        SlowSource source(text, most);
        PairReader reader(source);
        EXPECT_EQ(ReadAll(reader), "1 0 L;3 90 513;5 290 1;7 160 1099511627777;9 310 F0;11 1071 -1;");
    }
}

TEST(PairReader, BinaryDrawingsMayBeginWithAComment)
{
    for (const std::string& text :
         {kSentinel + Bytes({0xFF, 0xE7, 0x03, 'h', 'i', 0, 0, 'L', 0, 8, 'x', 0}),
          kSentinel + Bytes({0xE7, 0x03, 'h', 'i', 0, 0, 0, 'L', 0, 8, 0, 'x', 0})}) {
        CDxfMemory memory(text);
        PairReader reader(memory);
        EXPECT_EQ(ReadAll(reader), "3 0 L;5 8 x;");
    }
}

TEST(PairReader, BinaryValuesAreOfTheKindThatTheirCodesHave)
{
    struct Kind {
        std::vector<std::int32_t> codes; // the first and the last one of each range
        std::string bytes;
        std::string value;
    };
    const Kind kinds[] = {
        {{1, 9, 100, 109, 300, 309, 320, 369, 390, 399, 410, 419, 430, 439, 470, 481, 1000, 1003, 1005, 1009},
         Bytes({'a', 0}),
         "a"},
        {{10, 59, 110, 149, 210, 239, 460, 469, 1010, 1059}, Bytes({0, 0, 0, 0, 0, 0, 0xF8, 0x3F}), "1.5"},
        {{60, 79, 80, 89, 170, 179, 270, 289, 370, 389, 400, 409, 1060, 1070}, Bytes({0xFE, 0xFF}), "-2"},
        {{90, 99, 420, 429, 440, 459, 1071}, Bytes({1, 0, 1, 0}), "65537"},
        {{160, 169}, Bytes({1, 0, 0, 0, 1, 0, 0, 0}), "4294967297"},
        {{290, 299}, Bytes({1}), "1"},
        {{310, 319, 1004}, Bytes({1, 0xF0}), "F0"},
    };
    for (const Kind& kind : kinds)
        for (const std::int32_t code : kind.codes) {
            const std::string text = kSentinel + Bytes({0, 0, 'L', 0, code & 0xFF, code >> 8}) + kind.bytes +
                                     Bytes({8, 0, 'x', 0});
            CDxfMemory memory(text);
            PairReader reader(memory);
            EXPECT_EQ(ReadAll(reader), "1 0 L;3 " + std::to_string(code) + " " + kind.value + ";5 8 x;");
        }
    for (const std::int32_t code : {150, 159, 180, 209, 240, 269, 482, 998, 1072}) {
        const std::string text = kSentinel + Bytes({0, 0, 'L', 0, code & 0xFF, code >> 8, 'a', 0});
        CDxfMemory memory(text);
        PairReader reader(memory);
        EXPECT_EQ(ReadAll(reader), "1 0 L;");
        EXPECT_TRUE(reader.IsBrokenBinary()) << code;
    }
}

TEST(TextSource, KnowsTheFormsThatItDecodes)
{
    EXPECT_TRUE(TextSource::Decodes(kSentinel + '\0'));
    EXPECT_FALSE(TextSource::Decodes(kSentinel.substr(0, 21)));
    EXPECT_TRUE(TextSource::Decodes("\xFF\xFE"
                                    "0"));
    EXPECT_TRUE(TextSource::Decodes("\xFE\xFF"
                                    "0"));
    EXPECT_FALSE(TextSource::Decodes("\xEF\xBB\xBF"
                                     "0\n"));
    EXPECT_FALSE(TextSource::Decodes("  0\nSECTION\n"));
    EXPECT_FALSE(TextSource::Decodes(""));
}

TEST(PairReader, ABinaryValueOfAnUnknownKindEndsTheReading)
{
    const std::string text = kSentinel + Bytes({0, 0, 'L', 0, 250, 0, 1, 2, 3});
    CDxfMemory memory(text);
    PairReader reader(memory);
    EXPECT_EQ(ReadAll(reader), "1 0 L;");
    EXPECT_TRUE(reader.IsBrokenBinary());
}

TEST(PairReader, LongBinaryTextsAreCut)
{
    const std::string text =
        kSentinel + Bytes({0, 'L', 0, 1}) + std::string(200'000, 'a') + Bytes({0, 8, 'x', 0});
    CDxfMemory memory(text);
    PairReader reader(memory);
    EXPECT_EQ(ReadAll(reader), "1 0 L;3 1 " + std::string(PairReader::kLongestLine, 'a') + ";5 8 x;");
    EXPECT_EQ(reader.CutLines().count, 1u);
}

TEST(PairReader, ALineTooManyIsSkippedAndCounted)
{
    CDxfMemory memory("0\nTEXT\n1\nfirst\nsecond\n40\n2.5\nAcDbText\n7\nStandard\n");
    PairReader reader(memory);
    EXPECT_EQ(ReadAll(reader), "1 0 TEXT;3 1 first;6 40 2.5;9 7 Standard;");
    EXPECT_EQ(reader.SkippedLines().count, 2u);
    EXPECT_EQ(reader.SkippedLines().firstLine, 5u);
}

TEST(PairReader, BlankLinesBetweenPairsAreSkippedAndCounted)
{
    CDxfMemory memory("0\nTEXT\n\n  \n40\n2.5\n");
    PairReader reader(memory);
    EXPECT_EQ(ReadAll(reader), "1 0 TEXT;5 40 2.5;");
    EXPECT_EQ(reader.SkippedLines().count, 2u);
    EXPECT_EQ(reader.SkippedLines().firstLine, 3u);
}

TEST(PairReader, RealsAndNumbersBeyondTheFormatsCodesAreNoCodes)
{
    EXPECT_EQ(ReadAll("0.0\n12000\n5E2\n12 13\n 10\n1\n"), "5 10 1;");
}

// The 0 is the value of a line that is lost, or has got one before it.
TEST(PairReader, AZeroBeforeANumberIsNoRecord)
{
    CDxfMemory memory("0\nLINE\n0\n20\n1\n11\n9\n0\n-1.5\n+2.e-3\n0\n 0 \n 62\n3\n0\nEOF\n");
    PairReader reader(memory);
    EXPECT_EQ(ReadAll(reader), "1 0 LINE;4 20 1;6 11 9;13 62 3;");
    EXPECT_EQ(reader.SkippedLines().count, 6u);
    EXPECT_EQ(reader.SkippedLines().firstLine, 3u);
}

TEST(PairReader, NamesOfRecordsMayBeginOrEndLikeNumbers)
{
    for (const char* const name : {"3DFACE", "1E", "E1", "1.#INF", "nan", "-", ".", "0x1", "1 2", ""})
        EXPECT_EQ(ReadAll(std::string("0\n") + name + "\n62\n3\n"), "1 0 " + std::string(name) + ";3 62 3;");
}

TEST(PairReader, ZerosWithoutEndDeepenNothing)
{
    std::string zeros;
    for (int i = 0; i < 300'000; ++i)
        zeros += "0\n";
    zeros += "8\nx\n";
    CDxfMemory memory(zeros);
    PairReader reader(memory);
    EXPECT_EQ(ReadAll(reader), "300001 8 x;");
    EXPECT_EQ(reader.SkippedLines().count, 300'000u);
}

TEST(PairReader, ANulEndsItsLinesTextAndIsCounted)
{
    using namespace std::string_view_literals;
    const std::string_view text = "0\nTEXT\n1\nA\0B\n40\n\0\n5\0\nx\n\n\0\n8\na\0b\0c"sv;
    for (const std::size_t most : {1u, 5u, 1000u}) {
        SlowSource source(text, most);
        PairReader reader(source);
        EXPECT_EQ(ReadAll(reader), "1 0 TEXT;3 1 A;5 40 ;7 5 x;11 8 a;");
        EXPECT_EQ(reader.NulLines().count, 5u);
        EXPECT_EQ(reader.NulLines().firstLine, 4u);
    }
    CDxfMemory memory("0\nTEXT\n8\na\0\n\n\n7\nb\n"sv);
    PairReader reader(memory);
    EXPECT_EQ(ReadAll(reader), "1 0 TEXT;3 8 a;7 7 b;");
    EXPECT_EQ(reader.NulLines().count, 1u);
    EXPECT_EQ(reader.NulLines().firstLine, 4u);
}

TEST(PairReader, LongTextsAreKeptAndLongerOnesCut)
{
    const std::string longest(PairReader::kLongestLine, 'a');
    const std::string text =
        "1\n" + longest + "\n1\n" + longest + "bc\n1\n" + longest + longest + longest + "\n8\nx\n";
    CDxfMemory kept(text);
    PairReader reader(kept);
    EXPECT_EQ(ReadAll(reader), "1 1 " + longest + ";3 1 " + longest + ";5 1 " + longest + ";7 8 x;");
    EXPECT_EQ(reader.CutLines().count, 2u);
    EXPECT_EQ(reader.CutLines().firstLine, 4u);
}

TEST(PairReader, CountsLinesAndBytes)
{
    const std::string text = Dxf({{0, "LINE"}, {8, "x"}, {0, "EOF"}});
    CDxfMemory memory(text);
    PairReader reader(memory);
    ReadAll(reader);
    EXPECT_EQ(reader.Lines(), 6u);
    EXPECT_EQ(reader.Bytes(), text.size());
}

TEST(PairReader, FailureToReadIsReported)
{
    FailingSource source("0\nLINE\n8\nx\n");
    PairReader reader(source);
    EXPECT_EQ(ReadAll(reader), "1 0 LINE;3 8 x;");
    EXPECT_TRUE(reader.HasFailed());
    CDxfMemory memory("0\nLINE\n");
    PairReader other(memory);
    ReadAll(other);
    EXPECT_FALSE(other.HasFailed());
}

} // namespace
} // namespace prepare
