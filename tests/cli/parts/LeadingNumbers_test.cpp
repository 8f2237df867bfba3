// Numbers that may be missing where one belongs.
#include "cli/contents/LeadingNumbers.h"

#include <gtest/gtest.h>

#include <limits>

using plexorn::LeadingInteger;
using plexorn::LeadingNumber;

TEST(LeadingInteger, DigitsAfterBlanksAndASign)
{
    EXPECT_EQ(LeadingInteger("0"), 0);
    EXPECT_EQ(LeadingInteger("  8"), 8);
    EXPECT_EQ(LeadingInteger(" \t+70 rest"), 70);
    EXPECT_EQ(LeadingInteger("-5"), -5);
}

TEST(LeadingInteger, NoneAtTheStart)
{
    for (const char* text : {"", " ", "x1", "+", "-", "+-5", "- 5", ".5"})
        EXPECT_EQ(LeadingInteger(text), std::nullopt) << text;
}

TEST(LeadingInteger, BeyondItsRangeItIsTheNearest)
{
    EXPECT_EQ(LeadingInteger("999999999"), 999999999);
    EXPECT_EQ(LeadingInteger("2147483647"), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(LeadingInteger("4294967296"), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(LeadingInteger("-4294967296"), std::numeric_limits<std::int32_t>::min());
}

TEST(LeadingNumber, DigitsWithAPointAndAnExponent)
{
    EXPECT_EQ(LeadingNumber("216.684"), 216.684);
    EXPECT_EQ(LeadingNumber("+.5e1 m"), 5.0);
    EXPECT_EQ(LeadingNumber("-3."), -3.0);
    EXPECT_EQ(LeadingNumber("000.0e9"), 0.0);
}

TEST(LeadingNumber, NoneAtTheStart)
{
    for (const char* text : {"", ".", "-", "+-5", "e5", "inf", "nan", "x"})
        EXPECT_EQ(LeadingNumber(text), std::nullopt) << text;
}

TEST(LeadingNumber, BeyondADoubleItIsNone)
{
    for (const char* text : {"1e999", "-1e999", "1e-999", "0.001e-400"})
        EXPECT_EQ(LeadingNumber(text), std::nullopt) << text;
}
