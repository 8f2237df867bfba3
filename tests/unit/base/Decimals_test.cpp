// Numbers of few decimals, and powers of ten.
#include "base/Decimals.h"
#include "base/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>

namespace {

std::string Fixed(double value, int decimals)
{
    char text[kLongestFormatted];
    return {text, FormatDecimals(value, decimals, text)};
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

} // namespace

TEST(FormatDecimals, NumbersHaveNoZeroTooMany)
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

TEST(FormatDecimals, NumbersHaveAllTheirDigits)
{
    for (int decimals = 0; decimals <= 15; ++decimals)
        for (std::uint64_t whole = 1; whole < 8'999'999'999'999'999; whole = whole * 3 + whole % 7) {
            const double value = static_cast<double>(whole) / PowerOfTen(decimals);
            const auto rounded = static_cast<std::uint64_t>(std::nearbyint(value * PowerOfTen(decimals)));
            EXPECT_EQ(Fixed(value, decimals), DigitByDigit(rounded, decimals)) << whole << " " << decimals;
            EXPECT_EQ(Fixed(-value, decimals), "-" + DigitByDigit(rounded, decimals));
        }
}

TEST(FormatDecimals, AsksForAPointInWholeNumbersAlone)
{
    for (const double value :
         {0.0, -0.0, 12.0, 120.0, -1.5, 0.05, 0.00004, 99999999.0, -123456789.0, 1234567890.5})
        for (const int decimals : {0, 4, 7, 8, 15}) {
            char text[kLongestFormatted];
            const std::string plain = Fixed(value, decimals);
            const std::string withPoint(text, FormatWithPoint(value, decimals, text));
            EXPECT_EQ(withPoint, plain.find_first_of(".e") == plain.npos ? plain + ".0" : plain);
        }
    char text[kLongestFormatted];
    EXPECT_EQ(std::string(text, FormatWithPoint(1e20, 4, text)), "1e+20");
}

TEST(FormatDecimals, NumbersThatAreTooLargeAreWhole)
{
    EXPECT_EQ(Fixed(1e20, 4), "1e+20");
    EXPECT_EQ(Fixed(-123456789012345.0, 4), "-1.2345678901234e+14");
}

TEST(PowerOfTen, IsTheNearestDouble)
{
    for (int power = -22; power <= 22; ++power) {
        std::string text("1e");
        text += std::to_string(power);
        EXPECT_EQ(PowerOfTen(power), std::strtod(text.c_str(), nullptr)) << power;
    }
}

TEST(FormatDecimals, WordsForWhatIsNoNumber)
{
    EXPECT_EQ(Fixed(std::numeric_limits<double>::infinity(), 4), "inf");
    EXPECT_EQ(Fixed(-std::numeric_limits<double>::infinity(), 4), "-inf");
    EXPECT_EQ(Fixed(std::numeric_limits<double>::quiet_NaN(), 4), "nan");
}

TEST(RoundedTo, TheNearestNumberOfSoManyDecimals)
{
    EXPECT_EQ(RoundedTo(1.2345, 2), 1.23);
    EXPECT_EQ(RoundedTo(-1.2355, 3), -1.236);
    EXPECT_EQ(RoundedTo(0.5, 0), 0);
    EXPECT_EQ(RoundedTo(1.5, 0), 2);
    EXPECT_EQ(RoundedTo(9.5e15, 0), 9.5e15);
    EXPECT_EQ(RoundedTo(1e300, 15), 1e300);
}
