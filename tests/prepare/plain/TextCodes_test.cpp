#include "prepare/plain/TextCodes.h"

#include <gtest/gtest.h>

#include <string>

namespace prepare {
namespace {

// "5: <letters>" or "3: lines 1".
std::string Read(std::string_view text, std::string_view codePage = "ANSI_1252")
{
    const TextCode code = ReadTextCode(text, codePage);
    const std::string lines = code.toggled != 0 ? "lines " + std::to_string(code.toggled) : std::string();
    return std::to_string(code.size) + ": " + code.letters + lines;
}

TEST(TextCodes, SignsOfPercentCodes)
{
    EXPECT_EQ(Read("%%dC"), "3: \u00B0");
    EXPECT_EQ(Read("%%D"), "3: \u00B0");
    EXPECT_EQ(Read("%%p"), "3: \u00B1");
    EXPECT_EQ(Read("%%C20"), "3: \u00D8");
    EXPECT_EQ(Read("%%%"), "3: %");
}

TEST(TextCodes, LinesAreToggled)
{
    EXPECT_EQ(Read("%%uA"), "3: lines 1");
    EXPECT_EQ(Read("%%O"), "3: lines 2");
    EXPECT_EQ(Read("%%k"), "3: lines 4");
}

TEST(TextCodes, NumberedCharactersAreThoseOfTheCodePage)
{
    EXPECT_EQ(Read("%%065"), "5: A");
    EXPECT_EQ(Read("%%178"), "5: \u00B2");
    EXPECT_EQ(Read("%%200", "ANSI_1251"), "5: \u0418");
    EXPECT_EQ(Read("%%127"), "5: \u00B0"); // as stroke fonts have them
    EXPECT_EQ(Read("%%128"), "5: \u00B1");
    EXPECT_EQ(Read("%%129"), "5: \u00D8");
    EXPECT_EQ(Read("%%007"), "5: ");
    EXPECT_EQ(Read("%%999"), "5: ");
}

TEST(TextCodes, WhatIsNoCodeIsLeftToTheCaller)
{
    EXPECT_EQ(Read(""), "0: ");
    EXPECT_EQ(Read("A"), "0: ");
    EXPECT_EQ(Read("%"), "0: ");
    EXPECT_EQ(Read("%d"), "0: ");
    EXPECT_EQ(Read("%%"), "0: ");
    EXPECT_EQ(Read("%%x"), "0: ");
    EXPECT_EQ(Read("%%17"), "0: ");
    EXPECT_EQ(Read("%%17x"), "0: ");
    EXPECT_EQ(Read("\\U+00B"), "0: ");
    EXPECT_EQ(Read("\\U+00BX"), "0: ");
    EXPECT_EQ(Read("\\M+68140"), "0: ");
    EXPECT_EQ(Read("\\M+1814"), "0: ");
    EXPECT_EQ(Read("^"), "0: ");
    EXPECT_EQ(Read("^2"), "0: ");
    EXPECT_EQ(Read("^\u00B2"), "0: ");
}

TEST(TextCodes, UnicodeEscapes)
{
    EXPECT_EQ(Read("\\U+2205 20"), "7: \u2205");
    EXPECT_EQ(Read("\\u+00b0"), "7: \u00B0");
    EXPECT_EQ(Read("\\U+D83D\\U+DE00"), "14: \U0001F600");
    EXPECT_EQ(Read("\\U+D83DA"), "7: \uFFFD");
}

TEST(TextCodes, CharactersOfEastAsianPages)
{
    EXPECT_EQ(Read("\\M+182A0"), "8: \u3042");                  // Japanese
    EXPECT_EQ(Read("\\M+2A4A4"), "8: \u4E2D");                  // traditional Chinese
    EXPECT_EQ(Read("\\M+3B0A1"), "8: \uAC00");                  // Korean
    EXPECT_EQ(Read("\\M+5D6D0"), "8: \u4E2D");                  // simplified Chinese
    EXPECT_EQ(Read("\\M+5CEC4\\M+5B1BEA"), "16: \u6587\u672C"); // several at once
    EXPECT_EQ(Read("\\M+5D0A1"), "8: \u5C0F");                  // its bytes are UTF-8, too
}

TEST(TextCodes, BytesThatAreNoCharacterAreReplaced)
{
#ifdef _WIN32 // whose table has a private character for each of them
    EXPECT_EQ(Read("\\M+1FFFF\\M+182A0"), "16: \uF8F3\uF8F3\u3042");
#else
    EXPECT_EQ(Read("\\M+1FFFF\\M+182A0"), "16: \uFFFD\u3042");
#endif
}

TEST(TextCodes, CaretsStandForControlCharacters)
{
    EXPECT_EQ(Read("^I"), "2: \t");
    EXPECT_EQ(Read("^J"), "2: \n");
    EXPECT_EQ(Read("^M"), "2: ");
    EXPECT_EQ(Read("^ 2"), "2: ^");
    EXPECT_EQ(Read("^a"), "2: !");
}

TEST(TextCodes, ControlCharactersBecomeBlanksOrNothing)
{
    std::string text;
    AppendWithoutControls(text, "a\tb\nc\rd\x01"
                                "e\x7F");
    EXPECT_EQ(text, "a b c de");
}

} // namespace
} // namespace prepare
