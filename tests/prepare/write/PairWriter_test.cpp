#include "prepare/write/PairWriter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <string>

namespace prepare {
namespace {

std::string Written(const std::function<void(PairWriter&)>& put)
{
    std::string text;
    const ByteFunction write = [&](std::string_view bytes) {
        text += bytes;
        return true;
    };
    PairWriter pairs(write);
    put(pairs);
    EXPECT_TRUE(pairs.Finish());
    return text;
}

std::string Fixed(double value, int decimals)
{
    const std::string pair = Written([&](PairWriter& pairs) { pairs.Fixed(8, value, decimals); });
    EXPECT_EQ(pair.substr(0, 2), "8\n");
    EXPECT_EQ(pair.back(), '\n');
    return pair.substr(2, pair.size() - 3);
}

std::string Real(double value, int digits = PairWriter::kDigits)
{
    std::string text;
    AppendReal(text, value, digits);
    return text;
}

TEST(PairWriter, FixedNumbersHaveNoZeroTooMany)
{
    EXPECT_EQ(Fixed(0, 4), "0");
    EXPECT_EQ(Fixed(-0.0, 4), "0");
    EXPECT_EQ(Fixed(12, 4), "12");
    EXPECT_EQ(Fixed(120, 0), "120");
    EXPECT_EQ(Fixed(-1.5, 4), "-1.5");
    EXPECT_EQ(Fixed(0.05, 4), "0.05");
    EXPECT_EQ(Fixed(0.00004, 4), "0");
    EXPECT_EQ(Fixed(-0.00004, 4), "0");
    EXPECT_EQ(Fixed(-0.00006, 4), "-0.0001");
    EXPECT_EQ(Fixed(1234.56789, 3), "1234.568");
    EXPECT_EQ(Fixed(1e-15, 15), "0.000000000000001");
}

// The same digit by digit.
std::string DigitByDigit(std::uint64_t whole, int decimals)
{
    std::string text = std::to_string(whole);
    const auto after = static_cast<std::size_t>(decimals);
    if (text.size() <= after)
        text.insert(0, after + 1 - text.size(), '0');
    text.insert(text.size() - after, 1, '.');
    text.erase(text.find_last_not_of('0') + 1);
    return text.back() == '.' ? text.substr(0, text.size() - 1) : text;
}

TEST(PairWriter, FixedNumbersHaveAllTheirDigits)
{
    for (int decimals = 0; decimals <= 15; ++decimals)
        for (std::uint64_t whole = 1; whole < 8'999'999'999'999'999; whole = whole * 3 + whole % 7) {
            const double value = static_cast<double>(whole) / PowerOfTen(decimals);
            const auto rounded = static_cast<std::uint64_t>(std::nearbyint(value * PowerOfTen(decimals)));
            EXPECT_EQ(Fixed(value, decimals), DigitByDigit(rounded, decimals)) << whole << " " << decimals;
            EXPECT_EQ(Fixed(-value, decimals), "-" + DigitByDigit(rounded, decimals));
        }
}

TEST(PairWriter, PassesLongTextsOnAsTheyAre)
{
    std::string expected;
    const std::string written = Written([&](PairWriter& pairs) {
        for (std::size_t size = 1; size < 200'000; size *= 3) {
            pairs.Text(1071, std::string(size, 'x'));
            pairs.Integer(0, -7);
            expected += "1071\n" + std::string(size, 'x') + "\n0\n-7\n";
        }
    });
    EXPECT_EQ(written, expected);
}

TEST(PairWriter, FixedNumbersThatAreTooLargeAreWhole)
{
    EXPECT_EQ(Fixed(1e20, 4), "1e+20");
    EXPECT_EQ(Fixed(-123456789012345.0, 4), "-1.2345678901234e+14");
}

TEST(PairWriter, RealNumbersLoseWhatArithmeticBlurs)
{
    EXPECT_EQ(Real(0.1 + 0.2), "0.3");
    EXPECT_EQ(Real(-0.0), "0");
    EXPECT_EQ(Real(5'600'000.123456), "5600000.123456");
    EXPECT_EQ(Real(std::acos(-1.0), 9), "3.14159265");
    EXPECT_EQ(Real(1e300), "1e+300");
}

TEST(PairWriter, PowersOfTenAreTheNearestDoubles)
{
    for (int power = -22; power <= 22; ++power) {
        std::string text("1e");
        text += std::to_string(power);
        EXPECT_EQ(PowerOfTen(power), std::strtod(text.c_str(), nullptr)) << power;
    }
}

TEST(PairWriter, LinesEndWithALineFeedAndHandlesAreUpperCase)
{
    const std::string text = Written([](PairWriter& pairs) {
        pairs.Text(0, "LINE");
        pairs.Handle(5, 0x1ABCDEF);
        pairs.Integer(370, -3);
        pairs.Real(10, 2.5);
        pairs.Fixed(20, 2.25, 1);
        pairs.Raw("62\n7\n");
    });
    EXPECT_EQ(text, "0\nLINE\n5\n1ABCDEF\n370\n-3\n10\n2.5\n20\n2.2\n62\n7\n");
}

TEST(PairWriter, AFunctionThatStopsIsNotCalledAgain)
{
    int calls = 0;
    const ByteFunction write = [&](std::string_view) {
        ++calls;
        return false;
    };
    PairWriter pairs(write);
    for (int i = 0; i < 100'000; ++i)
        pairs.Text(1, "a text that fills the buffer");
    EXPECT_FALSE(pairs.Finish());
    EXPECT_EQ(calls, 1);
}

} // namespace
} // namespace prepare
