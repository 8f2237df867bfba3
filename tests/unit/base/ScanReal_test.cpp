// Numbers in texts of several.
#include "base/ScanReal.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>

namespace {

struct Scanned {
    double value = -7;
    std::string text;
    std::string rest;

    bool operator==(const Scanned&) const = default;
};

std::string Narrow(std::wstring_view text)
{
    std::string narrow;
    for (const wchar_t unit : text)
        narrow += static_cast<char>(unit);
    return narrow;
}

// What the text begins with, as text of either width; nothing of it when it begins with no number.
Scanned Scan(const std::string& text)
{
    Scanned narrow, wide;
    std::string_view shortText;
    if (const char* const end = ScanReal(text.c_str(), narrow.value, shortText))
        narrow.text = shortText, narrow.rest = end;
    const std::wstring wideText(text.begin(), text.end());
    std::wstring_view wideShort;
    if (const wchar_t* const end = ScanReal(wideText.c_str(), wide.value, wideShort))
        wide.text = Narrow(wideShort), wide.rest = Narrow(end);
    EXPECT_EQ(narrow, wide) << text;
    Scanned ahead;
    const std::string padded = text + '\0' + std::string(kScanAhead, '7');
    if (const char* const end = ScanRealAhead(padded.data(), ahead.value, shortText))
        ahead.text = shortText, ahead.rest = end;
    EXPECT_EQ(narrow, ahead) << text;
    return narrow;
}

// At least so many digits, and at most 13 more.
std::string SomeDigits(std::mt19937& random, std::size_t least)
{
    std::string digits;
    for (std::size_t left = random() % 14 + least; left != 0; --left)
        digits += static_cast<char>('0' + random() % 10);
    return digits;
}

} // namespace

TEST(ScanReal, EndsWhereTheNumberEnds)
{
    EXPECT_EQ(Scan("12"), (Scanned{12, "12", ""}));
    EXPECT_EQ(Scan("-1.25,7"), (Scanned{-1.25, "-1.25", ",7"}));
    EXPECT_EQ(Scan("+.5.5"), (Scanned{0.5, ".5", ".5"}));
    EXPECT_EQ(Scan("3-4"), (Scanned{3, "3", "-4"}));
    EXPECT_EQ(Scan("1e3 2"), (Scanned{1000, "1e3", " 2"}));
    EXPECT_EQ(Scan("25E-1z"), (Scanned{2.5, "25E-1", "z"}));
}

TEST(ScanReal, ZerosThatSayNothingAreNotInTheText)
{
    EXPECT_EQ(Scan("1.500000"), (Scanned{1.5, "1.5", ""}));
    EXPECT_EQ(Scan("-20.000000"), (Scanned{-20, "-20", ""}));
    EXPECT_EQ(Scan("-0.000000"), (Scanned{0, "0", ""}));
    EXPECT_EQ(Scan(".0"), (Scanned{0, "0", ""}));
    EXPECT_EQ(Scan("100"), (Scanned{100, "100", ""}));
    EXPECT_EQ(Scan("1.50e2"), (Scanned{150, "1.50e2", ""}));
}

TEST(ScanReal, NumbersOfAnyLengthBeforeAndAfterThePoint)
{
    const std::string digits = "1234567891234567891";
    for (std::size_t whole = 0; whole < digits.size(); ++whole)
        for (std::size_t after = 0; whole + after < digits.size(); ++after)
            for (const char* const rest : {"", ",5", "e2", "e", ".", "-1"}) {
                const std::string number = digits.substr(0, whole) + '.' + digits.substr(whole, after);
                const Scanned scanned = Scan(number + rest);
                if (whole + after > 0 && rest != std::string_view("e")) {
                    EXPECT_EQ(scanned.value, std::strtod((number + rest).c_str(), nullptr)) << number << rest;
                }
            }
}

TEST(ScanReal, WhatIsNoNumber)
{
    for (const char* text :
         {"", " 1", "-", "+", ".", "-.", "+-1", "--1", "e5", "1e", "1e+", "inf", "nan", "x"})
        EXPECT_EQ(Scan(text), (Scanned{-7, "", ""})) << text;
}

TEST(ScanReal, IsTheNearestDoubleWhateverTheLength)
{
    std::mt19937 random(1);
    for (int i = 0; i < 20'000; ++i) {
        std::string text = random() % 2 == 0 ? "-" : "";
        text += SomeDigits(random, 1) + ".";
        text += SomeDigits(random, 0);
        EXPECT_EQ(Scan(text).value, std::strtod(text.c_str(), nullptr)) << text;
    }
}
