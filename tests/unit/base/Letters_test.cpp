#include "base/Letters.h"

#include <gtest/gtest.h>

#include <string>

TEST(Letters, OfAsciiAloneHaveAnotherCase)
{
    EXPECT_EQ(InSmallLetters("AZ[@az\xC4"), "az[@az\xC4");
    EXPECT_EQ(InCapitals("az{`AZ\xE4"), "AZ{`AZ\xE4");
}

TEST(Letters, AreTheSameInEitherCase)
{
    EXPECT_TRUE(AreSameLetters("Url", "uRL"));
    EXPECT_TRUE(AreSameLetters("", ""));
    EXPECT_FALSE(AreSameLetters("url", "urls"));
    EXPECT_FALSE(AreSameLetters("@", "`"));
    EXPECT_FALSE(AreSameLetters("\xC4", "\xE4"));
}

TEST(Letters, EndATextInEitherCase)
{
    EXPECT_TRUE(EndsInLetters("plan.DXF", ".dxf"));
    EXPECT_TRUE(EndsInLetters(".dxf", ".dxf"));
    EXPECT_FALSE(EndsInLetters("dxf", ".dxf"));
    EXPECT_FALSE(EndsInLetters("plan.dxf ", ".dxf"));
}
