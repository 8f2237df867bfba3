// Numbers against the standard library's functions, on random and odd inputs.
#include "base/Multiply.h"
#include "base/Numbers.h"
#include "input/CDxfMemory.h"
#include "input/CDxfStream.h"
#include "support/NumbersModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

// A text made of some characters, at random.
std::string RandomText(std::mt19937_64& random, std::string_view characters, std::size_t longest)
{
    std::string text;
    for (std::size_t size = random() % (longest + 1); size != 0; --size)
        text += characters[random() % characters.size()];
    return text;
}

std::string RandomDigits(std::mt19937_64& random, std::size_t longest)
{
    return RandomText(random, "0123456789", longest);
}

std::string RandomBlanksAndSign(std::mt19937_64& random)
{
    static constexpr const char* kSigns[] = {"", "", "-", "+"};
    return RandomText(random, " \t\r", random() % 3) + kSigns[random() % 4];
}

// A text in the form of a real, of whatever size.
std::string RandomReal(std::mt19937_64& random)
{
    std::string text = RandomBlanksAndSign(random) + RandomDigits(random, random() % 25);
    if (random() % 2 == 0)
        text += "." + RandomDigits(random, random() % 25);
    if (random() % 2 == 0)
        text += (random() % 2 == 0 ? "e" : "E") + RandomBlanksAndSign(random) + RandomDigits(random, 3);
    return text;
}

double RandomDouble(std::mt19937_64& random)
{
    return std::bit_cast<double>(static_cast<std::uint64_t>(random()));
}

// Doubles at and around the ends of the range, powers, halves, and values as drawings have them.
std::vector<double> OddDoubles()
{
    using Limits = std::numeric_limits<double>;
    std::vector<double> values = {0.0,
                                  -0.0,
                                  Limits::max(),
                                  Limits::min(),
                                  Limits::denorm_min(),
                                  Limits::epsilon(),
                                  0.5,
                                  1.5,
                                  2.5,
                                  0.125,
                                  0.375,
                                  0.005,
                                  0.015,
                                  0.025,
                                  0.995,
                                  9.995,
                                  99.995,
                                  999999.5,
                                  9999995.0,
                                  0.000099999949999,
                                  0.00009999995};
    for (int exponent = -330; exponent <= 308; ++exponent) {
        const double power = std::strtod(("1e" + std::to_string(exponent)).c_str(), nullptr);
        values.insert(values.end(),
                      {power, std::nextafter(power, 0.0), std::nextafter(power, Limits::max())});
    }
    for (int i = -2000; i <= 2000; ++i)
        values.insert(values.end(), {i / 2000.0, i / 1000.0 + 0.0005, i * 0.0000005});
    const std::size_t positive = values.size();
    for (std::size_t i = 0; i < positive; ++i)
        values.push_back(-values[i]);
    return values;
}

using Formatter = char* (*)(double, char*);

std::string Actual(Formatter format, double value)
{
    char text[kLongestNumber];
    return {text, format(value, text)};
}

void ExpectAgreement(double value)
{
    ASSERT_EQ(Actual(FormatFixed6, value), ModelFormat("%f", value));
    ASSERT_EQ(Actual(FormatWidth4Fixed2, value), ModelFormat("%4.2f", value));
    ASSERT_EQ(Actual(FormatGeneral, value), ModelFormat("%g", value));
}

// The bits, because -0 and 0 compare equal.
std::uint64_t Bits(double value)
{
    return std::bit_cast<std::uint64_t>(value);
}

void ExpectSameReal(const std::string& text)
{
    ASSERT_EQ(Bits(ParseReal(text)), Bits(ModelReal(text))) << testing::PrintToString(text);
}

// Reads texts as lines of a stream, among each other as in a file.
void ExpectSameRealLines(const std::vector<std::string>& texts)
{
    std::string file;
    for (const std::string& text : texts)
        file += text + "\r\n";
    CDxfMemory memory(file);
    CDxfStream stream(memory);
    for (const std::string& text : texts) {
        const CDxfLine line = stream.getline();
        ASSERT_EQ(line, text);
        ASSERT_EQ(Bits(ParseLineReal(line)), Bits(ModelReal(text))) << testing::PrintToString(text);
    }
}

} // namespace

TEST(NumbersModel, RealsAreReadAsByStrtod)
{
    std::mt19937_64 random(1);
    for (int round = 0; round < 200000; ++round)
        ASSERT_NO_FATAL_FAILURE(ExpectSameReal(RandomReal(random)));
}

TEST(NumbersModel, TextsOfTheCharactersOfARealAreReadAsByStrtod)
{
    std::mt19937_64 random(2);
    for (int round = 0; round < 200000; ++round)
        ASSERT_NO_FATAL_FAILURE(ExpectSameReal(RandomText(random, "0123456789..eE+-  \tz", 12)));
}

TEST(NumbersModel, RealsOfLinesAreReadAsByStrtod)
{
    std::mt19937_64 random(13);
    std::vector<std::string> texts;
    for (int round = 0; round < 100000; ++round)
        texts.push_back(RandomText(random, "-", random() % 2) + RandomDigits(random, random() % 12) +
                        (random() % 8 == 0 ? "" : ".") + RandomDigits(random, random() % 22) +
                        RandomText(random, ".e- z", round % 16 == 0 ? 2 : 0));
    for (int round = 0; round < 100000; ++round)
        texts.push_back(RandomReal(random));
    ExpectSameRealLines(texts);
}

// A middle between two doubles is odd / 2^shift. It has more decimals than are given here: the texts are the
// nearest below and above it, where an estimate is most easily rounded to the wrong side.
TEST(NumbersModel, RealsNextToTheMiddleOfTwoDoublesAreReadAsByStrtod)
{
    std::mt19937_64 random(17);
    std::vector<std::string> texts;
    for (int round = 0; round < 50000; ++round) {
        const std::uint64_t odd = std::uint64_t{1} << 53 | random() >> 11 | 1;
        const int shift = 28 + static_cast<int>(random() % 26); // the number is below 2^26
        const std::size_t decimals = std::min<std::size_t>(16, 19 - std::to_string(odd >> shift).size());
        std::uint64_t power = 1;
        for (std::size_t i = 0; i < decimals; ++i)
            power *= 10;
        const Uint128 product = Multiply(odd, power);
        const std::uint64_t below = product.high << (64 - shift) | product.low >> shift;
        for (const std::uint64_t digits : {below - 1, below, below + 1, below + 2}) {
            std::string text = std::to_string(digits);
            text.insert(text.size() - decimals, ".");
            texts.push_back(text);
        }
    }
    ExpectSameRealLines(texts);
}

TEST(NumbersModel, RealsOfTheFirstAndLastLineOfAFileAreReadAsByStrtod)
{
    for (const char* const text : {"",
                                   "1",
                                   "-",
                                   ".",
                                   "-.",
                                   "1.5",
                                   "-1.5",
                                   ".5",
                                   "5.",
                                   "1234567.8",
                                   "12345678.9",
                                   "1.1234567890123456",
                                   "1.12345678901234567",
                                   "0.0",
                                   "-0.0",
                                   "1.5 ",
                                   " 1.5",
                                   "/.5",
                                   ":.5",
                                   "1./",
                                   "1.:",
                                   "1.2.3",
                                   "1e5",
                                   "1.e5",
                                   "1.5e5"})
        ASSERT_NO_FATAL_FAILURE(ExpectSameRealLines({text})) << text;
}

TEST(NumbersModel, NoByteButADigitIsInADecimal)
{
    std::vector<std::string> texts;
    for (int byte = 1; byte < 256; ++byte)
        for (std::size_t place = 0; place < 12; ++place) {
            std::string text = "123.12345678";
            text[place] = static_cast<char>(byte);
            if (byte != '\n' && byte != '\x1A' && !(byte == '\r' && place == 11) && (byte | 0x20) != 'x')
                texts.push_back(text);
        }
    ExpectSameRealLines(texts);
}

TEST(NumbersModel, LongRealsAreReadAsByStrtod)
{
    std::mt19937_64 random(3);
    for (int round = 0; round < 5000; ++round)
        ASSERT_NO_FATAL_FAILURE(ExpectSameReal(RandomText(random, "00000000001", 500) + "." +
                                               RandomText(random, "0000000009", 500) +
                                               (random() % 2 == 0 ? "" : "e-" + RandomDigits(random, 3))));
}

TEST(NumbersModel, ShortestAndLongTextsOfADoubleGiveItBack)
{
    std::mt19937_64 random(4);
    for (int round = 0; round < 20000; ++round) {
        const double value = RandomDouble(random);
        if (!std::isfinite(value))
            continue;
        ASSERT_NO_FATAL_FAILURE(ExpectSameReal(ModelFormat("%.17g", value)));
        ASSERT_EQ(ParseReal(ModelFormat("%.17g", value)), value);
        ASSERT_NO_FATAL_FAILURE(ExpectSameReal(ModelFormat("%.6e", value)));
    }
}

TEST(NumbersModel, RealsHalfWayBetweenTwoDoublesAreReadAsByStrtod)
{
    std::mt19937_64 random(5);
    for (int round = 0; round < 20000; ++round) {
        // 54 bits: the last lies half way.
        const std::uint64_t half = (std::uint64_t{1} << 53) | (random() & ((std::uint64_t{1} << 53) - 1)) | 1;
        const std::string text = std::to_string(half);
        ASSERT_NO_FATAL_FAILURE(ExpectSameReal(text));
        ASSERT_NO_FATAL_FAILURE(ExpectSameReal(text + "." + std::string(random() % 30, '0') + "1"));
    }
}

TEST(NumbersModel, RealsAtTheEndsOfTheRangeAreReadAsByStrtod)
{
    std::mt19937_64 random(6);
    for (int round = 0; round < 20000; ++round) {
        const std::string digits = RandomDigits(random, 20) + "." + RandomDigits(random, 20);
        ASSERT_NO_FATAL_FAILURE(ExpectSameReal(digits + "e" + std::to_string(280 + random() % 60)));
        ASSERT_NO_FATAL_FAILURE(ExpectSameReal(digits + "e-" + std::to_string(280 + random() % 80)));
    }
    ASSERT_NO_FATAL_FAILURE(ExpectSameReal("1.7976931348623158e308"));
    ASSERT_NO_FATAL_FAILURE(ExpectSameReal("1.7976931348623159e308"));
    ASSERT_NO_FATAL_FAILURE(ExpectSameReal("2.2250738585072011e-308"));
    ASSERT_NO_FATAL_FAILURE(ExpectSameReal("2.4703282292062327208e-324"));
    ASSERT_NO_FATAL_FAILURE(ExpectSameReal("2.4703282292062328e-324"));
}

TEST(NumbersModel, IntegersAreReadAsByStrtoll)
{
    std::mt19937_64 random(7);
    for (int round = 0; round < 200000; ++round) {
        const std::string text = round % 2 == 0 ? RandomBlanksAndSign(random) + RandomDigits(random, 21)
                                                : RandomText(random, "0123456789+- .x", 12);
        ASSERT_EQ(ParseInteger(text), ModelInteger(text)) << testing::PrintToString(text);
    }
}

TEST(NumbersModel, CodesAreReadAsBySscanf)
{
    std::mt19937_64 random(8);
    for (int round = 0; round < 200000; ++round) {
        const std::string text = round % 2 == 0 ? RandomBlanksAndSign(random) + RandomDigits(random, 9)
                                                : RandomText(random, "0123456789+- \tx.", 9);
        int expected = -1;
        const bool found = std::sscanf(text.c_str(), "%d", &expected) == 1;
        std::int32_t code = -1, modelCode = -1;
        ASSERT_EQ(ModelCode(text, modelCode), found) << testing::PrintToString(text);
        ASSERT_EQ(modelCode, expected) << testing::PrintToString(text);
        ASSERT_EQ(ParseCode(text, code), found) << testing::PrintToString(text);
        ASSERT_EQ(code, expected) << testing::PrintToString(text);
        ParseUsualCode(text, code);
        ASSERT_EQ(code, expected) << testing::PrintToString(text);
    }
}

TEST(NumbersModel, CodesOutside32BitsWrap)
{
    std::mt19937_64 random(9);
    for (int round = 0; round < 20000; ++round) {
        const std::int64_t number = static_cast<std::int64_t>(random()) >> (random() % 33);
        std::int32_t code = -1;
        ASSERT_TRUE(ParseCode(std::to_string(number), code));
        ASSERT_EQ(code, static_cast<std::int32_t>(number)) << number;
    }
}

TEST(NumbersModel, CodesOfManyDigitsWrap)
{
    std::mt19937_64 random(14);
    for (int round = 0; round < 20000; ++round) {
        const std::string text = RandomBlanksAndSign(random) + "1" + RandomDigits(random, 60);
        std::int32_t code = -1, expected = -1;
        ASSERT_TRUE(ModelCode(text, expected));
        ASSERT_TRUE(ParseCode(text, code));
        ASSERT_EQ(code, expected) << text;
    }
}

TEST(NumbersModel, RandomDoublesAreWrittenAsBySnprintf)
{
    std::mt19937_64 random(10);
    for (int round = 0; round < 30000; ++round) {
        const double value = RandomDouble(random);
        if (std::isnan(value))
            continue;
        ASSERT_NO_FATAL_FAILURE(ExpectAgreement(value)) << ModelFormat("%a", value);
    }
}

TEST(NumbersModel, DoublesOfDrawingsAreWrittenAsBySnprintf)
{
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> coordinate(-100000.0, 100000.0);
    for (int round = 0; round < 100000; ++round) {
        const double value = coordinate(random);
        ASSERT_NO_FATAL_FAILURE(ExpectAgreement(value)) << ModelFormat("%a", value);
        ASSERT_NO_FATAL_FAILURE(ExpectAgreement(std::round(value) / 1000)) << ModelFormat("%a", value);
    }
}

TEST(NumbersModel, OddDoublesAreWrittenAsBySnprintf)
{
    for (const double value : OddDoubles())
        ASSERT_NO_FATAL_FAILURE(ExpectAgreement(value)) << ModelFormat("%a", value);
}

TEST(NumbersModel, IntegersAreWrittenAsBySnprintf)
{
    std::mt19937_64 random(12);
    for (int round = 0; round < 100000; ++round) {
        const std::int32_t value = static_cast<std::int32_t>(random()) >> (random() % 32);
        char text[kLongestNumber];
        ASSERT_EQ(std::string(text, FormatInteger(value, text)), std::to_string(value));
    }
}
