// The shortest text of a number.
#include "base/Numbers.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cstdint>
#include <random>
#include <string>

namespace {

template <class Real>
std::string Shortest(Real value)
{
    char text[kLongestShortest];
    return {text, FormatShortest(value, text)};
}

// As the standard library writes it, in more steps.
template <class Real>
std::string Expected(Real value)
{
    char text[64];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

template <class Real>
void ExpectShortest(Real value)
{
    ASSERT_EQ(Shortest(value), Expected(value));
    ASSERT_EQ(Shortest(-value), Expected(-value));
}

} // namespace

TEST(Shortest, DigitsAreAsManyAsReadTheNumberBack)
{
    EXPECT_EQ(Shortest(0.0F), "0");
    EXPECT_EQ(Shortest(-0.0), "-0");
    EXPECT_EQ(Shortest(12.5F), "12.5");
    EXPECT_EQ(Shortest(-0.001F), "-0.001");
    EXPECT_EQ(Shortest(0.1F), "0.1");
    EXPECT_EQ(Shortest(123456.7F), "123456.7");
    EXPECT_EQ(Shortest(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(Shortest(-1.2345678901234568e-300), "-1.2345678901234568e-300");
}

TEST(Shortest, ExponentIsWrittenWhereItIsShorter)
{
    EXPECT_EQ(Shortest(10000.0F), "10000");
    EXPECT_EQ(Shortest(100000.0F), "1e+05");
    EXPECT_EQ(Shortest(120000.0), "120000");
    EXPECT_EQ(Shortest(900000.0), "9e+05");
    EXPECT_EQ(Shortest(0.0001F), "1e-04");
}

// Both neighbours of two decimals, .12 and .13, read back as this number.
TEST(Shortest, NumberBetweenTwoTextsHasTheEvenOne)
{
    EXPECT_EQ(Shortest(131072.125F), "131072.12");
    EXPECT_EQ(Shortest(131072.375F), "131072.38");
}

TEST(Shortest, FewDecimalsOfAnyMagnitude)
{
    for (const double scale : {1.0, 10.0, 100.0, 1000.0, 10'000.0, 100'000.0}) {
        for (std::uint32_t scaled = 0; scaled < 1'100'000; scaled += 7) {
            ExpectShortest(scaled / scale);
            ExpectShortest(static_cast<float>(scaled / scale));
        }
    }
}

TEST(Shortest, RandomNumbers)
{
    std::mt19937_64 random(1);
    for (int i = 0; i < 200'000; ++i) {
        const std::uint64_t bits = random() >> 1;
        ExpectShortest(static_cast<float>(bits % 250'000'000) / 1000);
        ExpectShortest(static_cast<double>(bits) / static_cast<double>(std::uint64_t{1} << (i % 64)));
        if ((bits >> 52) < 0x7FF)
            ExpectShortest(std::bit_cast<double>(bits));
        if ((bits >> 55) < 0xFF)
            ExpectShortest(std::bit_cast<float>(static_cast<std::uint32_t>(bits >> 32)));
    }
}
