#include "prepare/plain/TextMetrics.h"

#include "base/Utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace prepare {
namespace {

TEST(TextMetrics, WidthsAreInHeightsOfCapitals)
{
    EXPECT_DOUBLE_EQ(TextWidth(""), 0);
    EXPECT_DOUBLE_EQ(TextWidth("I"), 0.364);
    EXPECT_DOUBLE_EQ(TextWidth("W"), 1.22);
    EXPECT_DOUBLE_EQ(TextWidth("AB"), 0.844 + 0.847);
}

TEST(TextMetrics, AccentsGreekAndCyrillicHaveTheirOwnWidths)
{
    EXPECT_DOUBLE_EQ(CharacterWidth(U'\u00C4'), 0.844);                // A with two dots: as A
    EXPECT_DOUBLE_EQ(CharacterWidth(U'\u0131'), CharacterWidth(U'i')); // i without its dot
    EXPECT_DOUBLE_EQ(CharacterWidth(U'\u0391'), 0.844);                // Alpha: as A
    EXPECT_DOUBLE_EQ(CharacterWidth(U'\u0410'), 0.844);                // Cyrillic A: as A
    EXPECT_DOUBLE_EQ(CharacterWidth(U'\u0301'), 0);                    // an accent over the letter before
}

// Any width that changes, changes these sums. They need new values only when scripts/lib/fontwidths.py has
// read another font.
TEST(TextMetrics, NoWidthOfTheTableChanges)
{
    double all = 0, weighted = 0;
    const auto add = [&](char32_t first, char32_t last) {
        for (char32_t character = first; character <= last; ++character) {
            std::string text;
            AppendUtf8(text, character);
            if (HasKnownWidth(text)) {
                all += CharacterWidth(character) * 1000;
                weighted += CharacterWidth(character) * 1000 * (character % 1009 + 1);
            }
        }
    };
    add(0x20, 0x52F);
    add(0x1E00, 0x1EFF);
    add(0x2000, 0x23FF);
    EXPECT_NEAR(all, 1'729'790, 0.01);
    EXPECT_NEAR(weighted, 855'186'382, 0.01);
}

TEST(TextMetrics, EastAsianCharactersAreAnEmWide)
{
    EXPECT_DOUBLE_EQ(CharacterWidth(U'\u4E2D'), 1.372);
    EXPECT_DOUBLE_EQ(CharacterWidth(U'\uAC00'), 1.372);
    EXPECT_DOUBLE_EQ(CharacterWidth(U'\uFF21'), 1.372);
    EXPECT_DOUBLE_EQ(CharacterWidth(U'\uFF71'), 0.686); // half as wide
}

TEST(TextMetrics, WhatTheFontLacksIsAsWideAsUsual)
{
    EXPECT_DOUBLE_EQ(CharacterWidth(U'\u0E01'), 0.756); // Thai
    EXPECT_DOUBLE_EQ(CharacterWidth(0xFFFFFFFF), 0.756);
}

TEST(TextMetrics, WidthsAreKnownOfWhatTheFontHasAndOfEastAsianCharacters)
{
    EXPECT_TRUE(HasKnownWidth(""));
    EXPECT_TRUE(HasKnownWidth("Gr\xC3\xB6\xC3\x9F"
                              "e \xCE\xA9 \xE6\x96\x87"));
    EXPECT_FALSE(HasKnownWidth("A\xE0\xB8\x81")); // Thai
}

TEST(TextMetrics, TailsReachBelowTheBaseLine)
{
    EXPECT_DOUBLE_EQ(InkReachOf("AB").bottom, 0);
    EXPECT_DOUBLE_EQ(InkReachOf("Ag").bottom, -0.285);
    EXPECT_DOUBLE_EQ(InkReachOf("xz").top, 0.75);
    EXPECT_DOUBLE_EQ(InkReachOf("xd").top, 1);
}

} // namespace
} // namespace prepare
