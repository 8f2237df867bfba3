// Numbers from text and numbers as text, case by case. That they agree with the library's is shown in
// NumbersModel_test.cpp.
#include "base/Numbers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr std::string_view kSixBlanks = " \t\n\v\f\r";

// The code of a line that has one, quickly or not.
std::int32_t CodeOf(std::string_view line)
{
    std::int32_t code = -1;
    EXPECT_TRUE(ParseCode(line, code)) << line;
    std::int32_t usual = code;
    ParseUsualCode(line, usual);
    EXPECT_EQ(usual, code) << line;
    return code;
}

using Formatter = char* (*)(double, char*);

std::string Format(Formatter format, double value)
{
    char text[kLongestNumber];
    return {text, format(value, text)};
}

} // namespace

TEST(ParseCode, ReadsDigitsAfterBlanksAndASign)
{
    EXPECT_EQ(CodeOf("0"), 0);
    EXPECT_EQ(CodeOf("  0"), 0);
    EXPECT_EQ(CodeOf(" \t\n\v\f\r62"), 62);
    EXPECT_EQ(CodeOf("+70"), 70);
    EXPECT_EQ(CodeOf("-5"), -5);
    EXPECT_EQ(CodeOf("00010"), 10);
    EXPECT_EQ(CodeOf("1071"), 1071);
}

TEST(ParseCode, IgnoresWhatFollowsTheDigits)
{
    EXPECT_EQ(CodeOf("  70abc"), 70);
    EXPECT_EQ(CodeOf("10.9"), 10);
    EXPECT_EQ(CodeOf("8 9"), 8);
    EXPECT_EQ(CodeOf("0x10"), 0);
    EXPECT_EQ(CodeOf("1e3"), 1);
}

TEST(ParseCode, IgnoresWhatComesAfterTheLine)
{
    const std::string_view text = "   7001  -52";
    for (std::size_t size : {4u, 5u, 6u, 7u}) {
        std::int32_t code = -1;
        EXPECT_TRUE(ParseCode(text.substr(0, size), code));
        EXPECT_EQ(std::to_string(code), std::string(text.substr(3, size - 3)));
    }
    std::int32_t code = -1;
    EXPECT_FALSE(ParseCode(text.substr(0, 3), code)) << "blanks alone";
    EXPECT_FALSE(ParseCode(text.substr(7, 3), code)) << "a sign alone";
}

TEST(ParseCode, FindsNoneWithoutDigits)
{
    for (const std::string_view line : {"", " ", "\t", "abc", "-", "+", "+-1", "--1", "- 1", ".5", "LINE",
                                        "\xA0"
                                        "1",
                                        "\xEF\xBB\xBF"
                                        "0"}) {
        std::int32_t code = 4711;
        EXPECT_FALSE(ParseCode(line, code)) << line;
        EXPECT_FALSE(ParseUsualCode(line, code)) << line;
        EXPECT_EQ(code, 4711) << line;
    }
}

TEST(ParseCode, AMinusOneIsACode)
{
    std::int32_t code = 0;
    EXPECT_TRUE(ParseCode("-1", code));
    EXPECT_EQ(code, -1);
}

TEST(ParseCode, WrapsOutside32Bits)
{
    EXPECT_EQ(CodeOf("2147483647"), 2147483647);
    EXPECT_EQ(CodeOf("2147483648"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(CodeOf("-2147483648"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(CodeOf("-2147483649"), 2147483647);
    EXPECT_EQ(CodeOf("4294967296"), 0);
    EXPECT_EQ(CodeOf("4294967306"), 10);
    EXPECT_EQ(CodeOf("-4294967286"), 10);
}

TEST(ParseInteger, ReadsUpToTheFirstOtherCharacter)
{
    EXPECT_EQ(ParseInteger("12"), 12);
    EXPECT_EQ(ParseInteger(" \t\n\v\f\r-12"), -12);
    EXPECT_EQ(ParseInteger("+12"), 12);
    EXPECT_EQ(ParseInteger("12abc"), 12);
    EXPECT_EQ(ParseInteger("0.5"), 0);
    EXPECT_EQ(ParseInteger("2.75"), 2);
    EXPECT_EQ(ParseInteger("-0.5"), 0);
    EXPECT_EQ(ParseInteger("-1.7"), -1);
    EXPECT_EQ(ParseInteger("1e3"), 1);
    EXPECT_EQ(ParseInteger("0x1F"), 0);
    EXPECT_EQ(ParseInteger("007"), 7);
}

TEST(ParseInteger, IsZeroWithoutDigits)
{
    for (const std::string_view text : {"", " ", "abc", "-", "+", "--1", "- 1", ".9",
                                        "\xA0"
                                        "1"})
        EXPECT_EQ(ParseInteger(text), 0) << text;
}

TEST(ParseInteger, Saturates)
{
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(ParseInteger("2147483647"), kMost);
    EXPECT_EQ(ParseInteger("2147483648"), kMost);
    EXPECT_EQ(ParseInteger("4294967297"), kMost);
    EXPECT_EQ(ParseInteger("18446744073709551617"), kMost);
    EXPECT_EQ(ParseInteger(std::string(1000, '9')), kMost);
    EXPECT_EQ(ParseInteger("-2147483648"), kLeast);
    EXPECT_EQ(ParseInteger("-2147483649"), kLeast);
    EXPECT_EQ(ParseInteger("-" + std::string(1000, '9')), kLeast);
}

TEST(ParseReal, ReadsDigitsPointAndExponent)
{
    EXPECT_EQ(ParseReal("1.5"), 1.5);
    EXPECT_EQ(ParseReal(" \t\n\v\f\r-1.5"), -1.5);
    EXPECT_EQ(ParseReal("+1.5"), 1.5);
    EXPECT_EQ(ParseReal("5."), 5.0);
    EXPECT_EQ(ParseReal(".5"), 0.5);
    EXPECT_EQ(ParseReal("-.5"), -0.5);
    EXPECT_EQ(ParseReal("1e3"), 1000.0);
    EXPECT_EQ(ParseReal("1E+3"), 1000.0);
    EXPECT_EQ(ParseReal("25e-1"), 2.5);
    EXPECT_EQ(ParseReal(".5e1"), 5.0);
    EXPECT_EQ(ParseReal("0.1"), 0.1);
}

TEST(ParseReal, StopsAtTheFirstCharacterThatDoesNotFit)
{
    EXPECT_EQ(ParseReal("12abc"), 12.0);
    EXPECT_EQ(ParseReal("1.5.5"), 1.5);
    EXPECT_EQ(ParseReal("1,5"), 1.0);
    EXPECT_EQ(ParseReal("1 5"), 1.0);
    EXPECT_EQ(ParseReal("3e"), 3.0);
    EXPECT_EQ(ParseReal("3e+"), 3.0);
    EXPECT_EQ(ParseReal("3ex"), 3.0);
    EXPECT_EQ(ParseReal("3e-x"), 3.0);
    EXPECT_EQ(ParseReal("3e1.5"), 30.0);
    EXPECT_EQ(ParseReal("1-2"), 1.0);
}

TEST(ParseReal, IsZeroWithoutASignWhenThereIsNoNumber)
{
    for (const std::string_view text : {"", " ", "abc", "-", "+", "--1", "+-1", "-+1", "- 1", ".", "-.", "+.",
                                        ".e5", "-.e5", "e5", "-e5", "-abc",
                                        "\xA0"
                                        "1"}) {
        EXPECT_EQ(ParseReal(text), 0.0) << text;
        EXPECT_FALSE(std::signbit(ParseReal(text))) << text;
    }
}

TEST(ParseReal, KeepsTheSignOfZero)
{
    EXPECT_TRUE(std::signbit(ParseReal("-0")));
    EXPECT_TRUE(std::signbit(ParseReal("-0.0e5")));
    EXPECT_FALSE(std::signbit(ParseReal("0")));
}

TEST(ParseReal, KnowsNoHexadecimalNumbersAndNoWords)
{
    EXPECT_EQ(ParseReal("0x10"), 0.0);
    EXPECT_EQ(ParseReal("0x1p4"), 0.0);
    for (const std::string_view text : {"inf", "-inf", "infinity", "INF", "nan", "NAN", "nan(1)", "1.#INF"})
        EXPECT_EQ(ParseReal(text), text.front() == '1' ? 1.0 : 0.0) << text;
}

TEST(ParseReal, IsInfiniteBeyondTheRange)
{
    EXPECT_EQ(ParseReal("1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(ParseReal("1e309"), kInfinity);
    EXPECT_EQ(ParseReal("-1e309"), -kInfinity);
    EXPECT_EQ(ParseReal("1e99999999999999999999"), kInfinity);
    EXPECT_EQ(ParseReal("0.0001e999"), kInfinity);
    EXPECT_EQ(ParseReal(std::string(400, '9')), kInfinity);
    EXPECT_EQ(ParseReal("-" + std::string(400, '9') + ".5e-5"), -kInfinity);
    EXPECT_EQ(ParseReal("." + std::string(600, '0') + "1e1000"), kInfinity);
}

TEST(ParseReal, IsZeroBelowTheRange)
{
    EXPECT_EQ(ParseReal("5e-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(ParseReal("1e-400"), 0.0);
    EXPECT_EQ(ParseReal("1e-99999999999999999999"), 0.0);
    EXPECT_EQ(ParseReal("." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(ParseReal("1" + std::string(300, '0') + "e-1000"), 0.0);
    EXPECT_TRUE(std::signbit(ParseReal("-1e-400")));
}

TEST(ParseReal, WeighsManyZerosAgainstTheExponent)
{
    EXPECT_EQ(ParseReal("." + std::string(500, '0') + "1e501"), 1.0);
    EXPECT_EQ(ParseReal("1" + std::string(500, '0') + "e-500"), 1.0);
    EXPECT_EQ(ParseReal("0e99999"), 0.0);
    EXPECT_EQ(ParseReal("0.000e-99999"), 0.0);
}

TEST(Trim, RemovesTheSixBlanksFromBothEnds)
{
    const std::string blanks(kSixBlanks);
    EXPECT_EQ(Trim(blanks + "a b" + blanks), "a b");
    EXPECT_EQ(Trim("a" + blanks + "b"), "a" + blanks + "b");
    EXPECT_EQ(Trim(blanks), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim("x"), "x");
}

TEST(Trim, RemovesNothingElse)
{
    for (int byte = 0; byte < 256; ++byte) {
        const char character = static_cast<char>(byte);
        const std::string text = character + std::string("x") + character;
        EXPECT_EQ(Trim(text), kSixBlanks.find(character) == std::string_view::npos ? text : "x") << byte;
    }
}

TEST(FormatFixed6, HasSixDecimals)
{
    EXPECT_EQ(Format(FormatFixed6, 0.5), "0.500000");
    EXPECT_EQ(Format(FormatFixed6, -0.0), "-0.000000");
    EXPECT_EQ(Format(FormatFixed6, 1.0 / 3), "0.333333");
    EXPECT_EQ(Format(FormatFixed6, 0.0000005), "0.000000"); // a little less than the half
    EXPECT_EQ(Format(FormatFixed6, 1e22), "10000000000000000000000.000000");
    EXPECT_EQ(Format(FormatFixed6, -std::numeric_limits<double>::max()).size(), kLongestNumber);
}

TEST(FormatFixed6, RoundsAHalfToTheEvenMillionth)
{
    EXPECT_EQ(Format(FormatFixed6, 1.0 / 128), "0.007812"); // 0.0078125
    EXPECT_EQ(Format(FormatFixed6, 3.0 / 128), "0.023438"); // 0.0234375
    EXPECT_EQ(Format(FormatFixed6, 1000000 + 1.0 / 128), "1000000.007812");
}

TEST(RoomForFixed6, IsWhatIsWrittenOrOneMore)
{
    const auto expectRoom = [](double value) {
        const std::size_t length = Format(FormatFixed6, value).size();
        EXPECT_GE(RoomForFixed6(value), length) << value;
        EXPECT_LE(RoomForFixed6(value), length + 1) << value;
    };
    for (int power = -1074; power <= 1023; ++power) {
        const double value = std::ldexp(1.0, power);
        for (const double near : {value, std::nextafter(value, 0.0), std::nextafter(value, kInfinity)}) {
            expectRoom(near);
            expectRoom(-near);
        }
    }
    for (int power = -7; power <= 308; ++power) {
        const double value = std::pow(10.0, power);
        expectRoom(value);
        expectRoom(std::nextafter(value, 0.0)); // rounds up to one digit more while it is small
    }
    for (const double value : {0.0, -0.0, std::numeric_limits<double>::max(), kInfinity, -kInfinity, kNan})
        expectRoom(value);
}

TEST(FormatFixed6, NamesWhatIsNoNumber)
{
    EXPECT_EQ(Format(FormatFixed6, kInfinity), "inf");
    EXPECT_EQ(Format(FormatFixed6, -kInfinity), "-inf");
    EXPECT_EQ(Format(FormatFixed6, kNan), "nan");
    EXPECT_EQ(Format(FormatFixed6, -kNan), "nan");
}

TEST(FormatWidth4Fixed2, IsAtLeastFourCharactersLong)
{
    EXPECT_EQ(Format(FormatWidth4Fixed2, 2.5), "2.50");
    EXPECT_EQ(Format(FormatWidth4Fixed2, 0.0), "0.00");
    EXPECT_EQ(Format(FormatWidth4Fixed2, -2.5), "-2.50");
    EXPECT_EQ(Format(FormatWidth4Fixed2, 12.345), "12.35"); // a little more than the half
    EXPECT_EQ(Format(FormatWidth4Fixed2, 123456.0), "123456.00");
    EXPECT_EQ(Format(FormatWidth4Fixed2, kInfinity), " inf");
    EXPECT_EQ(Format(FormatWidth4Fixed2, -kInfinity), "-inf");
    EXPECT_EQ(Format(FormatWidth4Fixed2, kNan), " nan");
    EXPECT_EQ(Format(FormatWidth4Fixed2, -kNan), " nan");
}

TEST(FormatGeneral, HasSixDigitsAndNoTrailingZeros)
{
    EXPECT_EQ(Format(FormatGeneral, 2.5), "2.5");
    EXPECT_EQ(Format(FormatGeneral, 100.0), "100");
    EXPECT_EQ(Format(FormatGeneral, 123456.0), "123456");
    EXPECT_EQ(Format(FormatGeneral, 1234567.0), "1.23457e+06");
    EXPECT_EQ(Format(FormatGeneral, 0.0001), "0.0001");
    EXPECT_EQ(Format(FormatGeneral, 0.00001), "1e-05");
    EXPECT_EQ(Format(FormatGeneral, 1e100), "1e+100");
    EXPECT_EQ(Format(FormatGeneral, -0.0), "-0");
    EXPECT_EQ(Format(FormatGeneral, 999999.5), "1e+06");
    EXPECT_EQ(Format(FormatGeneral, kInfinity), "inf");
    EXPECT_EQ(Format(FormatGeneral, -kNan), "nan");
}

TEST(FormatInteger, HasSignAndDigits)
{
    char text[kLongestNumber];
    const auto format = [&](std::int32_t value) { return std::string(text, FormatInteger(value, text)); };
    EXPECT_EQ(format(0), "0");
    EXPECT_EQ(format(-7), "-7");
    EXPECT_EQ(format(2147483647), "2147483647");
    EXPECT_EQ(format(std::numeric_limits<std::int32_t>::min()), "-2147483648");
}

TEST(FormatInteger, TakesIntegersOfAnyWidth)
{
    char text[kLongestInteger];
    const auto format = [&](auto value) { return std::string(text, FormatInteger(value, text)); };
    EXPECT_EQ(format(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
    EXPECT_EQ(format(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
    EXPECT_EQ(format(std::uint32_t{4294967295}), "4294967295");
    EXPECT_EQ(format(static_cast<short>(-12)), "-12");
}

TEST(FormatFixed, HasTheDecimalsItIsGiven)
{
    char text[kLongestFormatted];
    const auto format = [&](double value, int decimals) {
        return std::string(text, FormatFixed(value, decimals, text));
    };
    EXPECT_EQ(format(2.5, 0), "2");
    EXPECT_EQ(format(3.5, 0), "4");
    EXPECT_EQ(format(1.0 / 3, 3), "0.333");
    EXPECT_EQ(format(-kNan, 3), "nan");
    EXPECT_EQ(format(-std::numeric_limits<double>::max(), kMostDigits).size(), kLongestFormatted);
}

TEST(FormatScientific, HasTheDecimalsItIsGiven)
{
    char text[kLongestFormatted];
    EXPECT_EQ(std::string(text, FormatScientific(12345.0, 2, text)), "1.23e+04");
    EXPECT_EQ(std::string(text, FormatScientific(0.5, 0, text)), "5e-01");
}

TEST(FormatGeneral, HasTheDigitsItIsGiven)
{
    char text[kLongestFormatted];
    const auto format = [&](double value, int digits) {
        return std::string(text, FormatGeneral(value, digits, text));
    };
    EXPECT_EQ(format(1234567.0, 7), "1234567");
    EXPECT_EQ(format(1234567.0, 4), "1.235e+06");
    EXPECT_EQ(format(0.1, 17), "0.10000000000000001");
}

TEST(FormatHex, HasZerosInFrontAndSmallOrCapitalLetters)
{
    char text[20];
    const auto small = [&](std::uint64_t value, std::size_t digits) {
        return std::string(text, FormatHex(value, digits, text));
    };
    EXPECT_EQ(small(0x1B, 4), "001b");
    EXPECT_EQ(small(0xABCDE, 2), "abcde");
    EXPECT_EQ(small(0, 1), "0");
    EXPECT_EQ(small(std::numeric_limits<std::uint64_t>::max(), 1), "ffffffffffffffff");
    EXPECT_EQ(small(0xF, 20), "0000000000000000000f");
    EXPECT_EQ(std::string(text, FormatUpperHex(0x1B, 4, text)), "001B");
}

TEST(ParseWholeReal, TakesNothingButANumber)
{
    EXPECT_EQ(ParseWholeReal("0.5"), 0.5);
    EXPECT_EQ(ParseWholeReal("-1.5e3"), -1500.0);
    EXPECT_EQ(ParseWholeReal(".5"), 0.5);
    EXPECT_EQ(ParseWholeReal("5."), 5.0);
    for (const char* text : {"", ".", " 1", "1 ", "+1", "1x", "0x1", "1,5", "inf", "nan", "1e999", "-"})
        EXPECT_EQ(ParseWholeReal(text), std::nullopt) << text;
}

TEST(ParseHex, TakesNothingButDigits)
{
    EXPECT_EQ(ParseHex("1f"), 0x1Fu);
    EXPECT_EQ(ParseHex("1F"), 0x1Fu);
    EXPECT_EQ(ParseHex("FFFFFFFFFFFFFFFF"), std::numeric_limits<std::uint64_t>::max());
    for (const char* text : {"", "g", "1 ", " 1", "0x1", "-1", "1FFFFFFFFFFFFFFFF", "@", "`", "Ff:"})
        EXPECT_EQ(ParseHex(text), std::nullopt) << text;
}

TEST(Numbers, DoNotFollowTheLocaleOfTheHost)
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    const char* commaLocale = nullptr;
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "German_Germany.1252", "de-DE"})
        if (commaLocale == nullptr)
            commaLocale = std::setlocale(LC_ALL, name);
    if (commaLocale == nullptr)
        GTEST_SKIP() << "No locale with a decimal comma is installed.";
    EXPECT_EQ(ParseReal("1.5"), 1.5);
    EXPECT_EQ(ParseReal("1,5"), 1.0);
    EXPECT_EQ(Format(FormatFixed6, 1.5), "1.500000");
    EXPECT_EQ(Format(FormatWidth4Fixed2, 1.5), "1.50");
    EXPECT_EQ(Format(FormatGeneral, 1.5), "1.5");
    std::setlocale(LC_ALL, before.c_str());
}
