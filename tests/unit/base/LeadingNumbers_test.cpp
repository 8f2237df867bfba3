// Numbers that may be missing where one belongs.
#include "base/Numbers.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

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

TEST(LeadingReal, DigitsWithAPointAndAnExponent)
{
    EXPECT_EQ(LeadingReal("216.684"), 216.684);
    EXPECT_EQ(LeadingReal("+.5e1 m"), 5.0);
    EXPECT_EQ(LeadingReal("-3."), -3.0);
    EXPECT_EQ(LeadingReal("000.0e9"), 0.0);
}

TEST(LeadingReal, NoneAtTheStart)
{
    for (const char* text : {"", ".", "-", "+-5", "e5", "inf", "nan", "x"})
        EXPECT_EQ(LeadingReal(text), std::nullopt) << text;
}

TEST(LeadingReal, BeyondADoubleItIsNone)
{
    for (const char* text : {"1e999", "-1e999", "1e-999", "0.001e-400"})
        EXPECT_EQ(LeadingReal(text), std::nullopt) << text;
}

namespace {

// The code of a line that is nothing else; 7777 for any other, which must leave the code as it was.
std::int32_t WholeCode(std::string_view line)
{
    std::int32_t code = 1234;
    if (ParseWholeCode(line, code))
        return code;
    EXPECT_EQ(code, 1234) << line;
    return 7777;
}

} // namespace

TEST(ParseWholeCode, FourDigitsInBlanks)
{
    EXPECT_EQ(WholeCode("0"), 0);
    EXPECT_EQ(WholeCode("  62\t"), 62);
    EXPECT_EQ(WholeCode("-5"), -5);
    EXPECT_EQ(WholeCode("0010"), 10);
    EXPECT_EQ(WholeCode(" -9999 "), -9999);
}

TEST(ParseWholeCode, AnythingElseIsNone)
{
    for (const char* line : {"", " ", "-", "+5", "--5", "- 5", "12.5", "12 5", "5x", "00010", "LINE"})
        EXPECT_EQ(WholeCode(line), 7777) << line;
}
