#include "prepare/drawing/Encoding.h"

#include "base/NamedCodePage.h"

#include <gtest/gtest.h>

#include <string>

namespace prepare {
namespace {

std::string Converted(const char* name, const char* bytes)
{
    return NamedCodePage(NumberedCodePage(name)).Utf8(bytes);
}

TEST(Encoding, AnsiAndDosCodePagesHaveTheirNumber)
{
    EXPECT_EQ(Converted("ANSI_1252", "\xE4"), "\u00E4");
    EXPECT_EQ(Converted("ansi_1251", "\xC4"), "\u0414");
    EXPECT_EQ(Converted("ANSI_874", "\xA1"), "\u0E01");
    EXPECT_EQ(Converted("dos850", "\x84"), "\u00E4");
    EXPECT_EQ(Converted("DOS866", "\x84"), "\u0414");
}

TEST(Encoding, WordsOfOldFilesAreCodePages)
{
    EXPECT_EQ(Converted("8859_1", "\xE4"), "\u00E4");
    EXPECT_EQ(Converted("ISO8859-2", "\xE8"), "\u010D");
    EXPECT_EQ(Converted("ISO8859-15", "\xA4"), "\u20AC");
    EXPECT_EQ(Converted("MACINTOSH", "\x8A"), "\u00E4");
    EXPECT_EQ(Converted("mac-roman", "\x8A"), "\u00E4");
    EXPECT_EQ(Converted("BIG5", "\xA4\xA4"), "\u4E2D");
    EXPECT_EQ(Converted("gb2312", "\xD6\xD0"), "\u4E2D");
    EXPECT_EQ(Converted("ksc5601", "\xB0\xA1"), "\uAC00");
    EXPECT_EQ(Converted("Johab", "\x88\x61"), "\uAC00");
    EXPECT_EQ(Converted("Shift-JIS", "\x82\xA0"), "\u3042");
}

#ifndef _WIN32 // whose tables have characters for wrong bytes, too
TEST(Encoding, AWrongOrMissingByteIsReplacedAlone)
{
    EXPECT_EQ(Converted("ANSI_932", "\x82\xA0\x82"), "\u3042\uFFFD");
    EXPECT_EQ(Converted("ANSI_874", "\xA1\xDB\xA1"), "\u0E01\uFFFD\u0E01");
    EXPECT_EQ(Converted("ANSI_1255", "\xF9\xD9\xF9"), "\u05E9\uFFFD\u05E9");
}
#endif

// Their letters may be joined with what follows them.
TEST(Encoding, TheLastLetterIsNotHeldBack)
{
    EXPECT_EQ(Converted("ANSI_1255", "\xF9\xE5\xFA"), "\u05E9\u05D5\u05EA");
    EXPECT_EQ(Converted("ANSI_1258", "\xE2"), "\u00E2");
}

TEST(Encoding, OnlyNamesOfCodePagesAreEncodings)
{
    EXPECT_TRUE(IsEncoding("MACINTOSH"));
    EXPECT_TRUE(IsEncoding("iso8859-9"));
    EXPECT_TRUE(IsEncoding("utf-8"));
    EXPECT_FALSE(IsEncoding("rot13"));
}

} // namespace
} // namespace prepare
