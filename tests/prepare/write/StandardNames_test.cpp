#include "prepare/plain/Palette.h"
#include "prepare/write/StandardNames.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

std::string Text(std::string_view text)
{
    bool isCut = false;
    return EscapedText(text, isCut);
}

TEST(StandardNames, CharactersAreInTheCodePageOrEscaped)
{
    EXPECT_EQ(EscapedValue("T\xC3\xBCr"), "T\xFCr");
    EXPECT_EQ(EscapedValue("\xE2\x82\xAC"), "\\U+20AC");
    EXPECT_EQ(EscapedValue("\xF0\x9F\x98\x80"), "\\U+D83D\\U+DE00");
    EXPECT_EQ(EscapedValue("\xFF"), "\\U+FFFD");
    EXPECT_EQ(EscapedValue("a\x1A\tb\x7F"), "a  b ");
}

TEST(StandardNames, WhatWouldBeUtf8InTheCodePageIsEscaped)
{
    EXPECT_EQ(EscapedValue("\xC3\x83\xC2\xBC"), "\\U+00C3\\U+00BC"); // A with tilde, a quarter
}

TEST(StandardNames, WhatWouldBeginACodeIsEscaped)
{
    EXPECT_EQ(EscapedValue("\\U+0041 \\M+1 \\P"), "\\U+005CU+0041 \\U+005CM+1 \\P");
    EXPECT_EQ(Text("50% %%d %%%"), "50% %%%%%%d %%%%%%%%%");
    EXPECT_EQ(Text("m^2"), "m^ 2");
}

TEST(StandardNames, LongTextsAreCutBetweenCharacters)
{
    bool isCut = false;
    const std::string longest(1999, 'x');
    EXPECT_EQ(EscapedText(longest + "\xE2\x82\xAC", isCut), longest);
    EXPECT_TRUE(isCut);
    EXPECT_EQ(EscapedText(longest + "y", isCut), longest + "y");
    EXPECT_FALSE(isCut);
}

TEST(StandardNames, NamesAreValidAndDiffer)
{
    StandardNames names({"Standard"});
    EXPECT_EQ(names.Take("Door"), "Door");
    EXPECT_EQ(names.Take("DOOR"), "DOOR_2");
    EXPECT_EQ(names.Take("Door"), "Door_3");
    EXPECT_EQ(names.Take("Door_2"), "Door_2_2");
    EXPECT_EQ(names.Take("*U12"), "_U12");
    EXPECT_EQ(names.Take("a|b/c"), "a_b_c");
    EXPECT_EQ(names.Take(""), "_");
    EXPECT_EQ(names.Take("standard"), "standard_2");
}

TEST(StandardNames, NearestColours)
{
    EXPECT_EQ(NearestColourIndex(0xFF0000), 1);
    EXPECT_EQ(NearestColourIndex(0xFF7F7F), 11);
    EXPECT_EQ(NearestColourIndex(0x0000F8), 5);
    EXPECT_EQ(NearestColourIndex(0x2899FF), 150);
    EXPECT_EQ(NearestColourIndex(0x000000), 250);
    EXPECT_EQ(NearestColourIndex(0x7F8080), 8);
    EXPECT_EQ(NearestColourIndex(0xFFFFFF), 255);
}

} // namespace
} // namespace prepare
