// The coder of UTF-8 and wide texts; CodePage_test_posix.cpp compares it with a decoder of another make.
#include "base/Utf8.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <tuple>

namespace {

constexpr bool kWideIsUtf16 = sizeof(wchar_t) == 2;

std::wstring WideOf(std::initializer_list<std::uint32_t> units)
{
    std::wstring wide;
    for (const std::uint32_t unit : units)
        wide += static_cast<wchar_t>(unit);
    return wide;
}

std::string Utf8Of(char32_t character)
{
    std::string text;
    AppendUtf8(text, character);
    return text;
}

std::wstring WideOf(char32_t character)
{
    return WideFromUtf8(Utf8Of(character)).value();
}

std::wstring Widened(std::string_view text)
{
    std::wstring wide(text.size(), L'\0');
    wide.resize(Utf8ToWide(text, wide.data()));
    return wide;
}

using Part = std::tuple<char32_t, std::size_t>;

Part Utf8Part(std::string_view text, Utf8Range range = Utf8Range::Characters)
{
    const DecodedCharacter next = DecodeUtf8(text, range);
    return {next.value, next.size};
}

Part WidePart(const std::wstring& text)
{
    const DecodedCharacter next = DecodeWide(text);
    return {next.value, next.size};
}

} // namespace

TEST(StartOfUtf8, EndsBeforeACharacterThatDoesNotFit)
{
    EXPECT_EQ(StartOfUtf8("abc", 3), "abc");
    EXPECT_EQ(StartOfUtf8("abc", 2), "ab");
    EXPECT_EQ(StartOfUtf8("a\xC3\xA4z", 2), "a");
    EXPECT_EQ(StartOfUtf8("a\xC3\xA4z", 3), "a\xC3\xA4");
    EXPECT_EQ(StartOfUtf8("\xF0\x9F\x9A\xAA", 3), "");
    EXPECT_EQ(StartOfUtf8("\x80\x80\x80", 2), "");
    EXPECT_EQ(StartOfUtf8("abc", 0), "");
}

TEST(Utf8, SurrogatesAndNumbersPastTheLastCharacterAreNoCharacters)
{
    for (const char32_t character : {0u, 0x7Fu, 0xD7FFu, 0xE000u, 0xFFFEu, 0xFFFFu, 0x10FFFFu})
        EXPECT_TRUE(IsCharacter(character)) << std::uint32_t{character};
    for (const char32_t value : {0xD800u, 0xDBFFu, 0xDC00u, 0xDFFFu, 0x110000u, 0xFFFFFFFFu})
        EXPECT_FALSE(IsCharacter(value)) << std::uint32_t{value};
}

TEST(Utf8, ShortestAndLongestCharactersOfEachLength)
{
    EXPECT_EQ(Utf8Of(0), std::string(1, '\0'));
    EXPECT_EQ(Utf8Of(0x7F), "\x7F");
    EXPECT_EQ(Utf8Of(0x80), "\xC2\x80");
    EXPECT_EQ(Utf8Of(0x7FF), "\xDF\xBF");
    EXPECT_EQ(Utf8Of(0x800), "\xE0\xA0\x80");
    EXPECT_EQ(Utf8Of(0xFFFF), "\xEF\xBF\xBF");
    EXPECT_EQ(Utf8Of(0x10000), "\xF0\x90\x80\x80");
    EXPECT_EQ(Utf8Of(0x10FFFF), "\xF4\x8F\xBF\xBF");
}

TEST(Utf8, EveryCharacterComesBackFromBothForms)
{
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        if (!IsCharacter(character))
            continue;
        const std::string utf8 = Utf8Of(character);
        const std::wstring wide = WideOf(character);
        ASSERT_EQ(Utf8Part(utf8 + "!"), Part(character, utf8.size()));
        ASSERT_EQ(Utf8Part(utf8, Utf8Range::AnyNumber), Part(character, utf8.size()));
        ASSERT_EQ(WidePart(wide + L"!"), Part(character, wide.size()));
    }
}

TEST(Utf8, WhatIsNoCharacterIsAppendedAsTheReplacement)
{
    for (const char32_t value : {0xD800u, 0xDFFFu, 0x110000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(Utf8Of(value), "\xEF\xBF\xBD");
        EXPECT_EQ(WideOf(value), L"\xFFFD");
    }
}

TEST(Utf8, InvalidBytesHaveTheSizeOfThePartThatBeginsASequence)
{
    EXPECT_EQ(Utf8Part("\x80\x80"), Part(kNoCharacter, 1));
    EXPECT_EQ(Utf8Part("\xC0\x80"), Part(kNoCharacter, 1)); // overlong
    EXPECT_EQ(Utf8Part("\xC2"), Part(kNoCharacter, 1));
    EXPECT_EQ(Utf8Part("\xC2x"), Part(kNoCharacter, 1));
    EXPECT_EQ(Utf8Part("\xE0\x9F\xBF"), Part(kNoCharacter, 1)); // overlong
    EXPECT_EQ(Utf8Part("\xE1\x80"), Part(kNoCharacter, 2));
    EXPECT_EQ(Utf8Part("\xE1\x80\xC2"), Part(kNoCharacter, 2));
    EXPECT_EQ(Utf8Part("\xED\xA0\x80"), Part(kNoCharacter, 1)); // a surrogate
    EXPECT_EQ(Utf8Part("\xF0\x8F\xBF\xBF"), Part(kNoCharacter, 1));
    EXPECT_EQ(Utf8Part("\xF1\x80\x80"), Part(kNoCharacter, 3));
    EXPECT_EQ(Utf8Part("\xF1\x80\x80x"), Part(kNoCharacter, 3));
    EXPECT_EQ(Utf8Part("\xF4\x90\x80\x80"), Part(kNoCharacter, 1)); // U+110000
    EXPECT_EQ(Utf8Part("\xF5\x80\x80\x80"), Part(kNoCharacter, 1));
    EXPECT_EQ(Utf8Part("\xFF"), Part(kNoCharacter, 1));
}

TEST(Utf8, EncodedSurrogatesAndLargeNumbersAreOneNumberWhereAnyIsTaken)
{
    EXPECT_EQ(Utf8Part("\xED\xA0\x80x", Utf8Range::AnyNumber), Part(0xD800, 3));
    EXPECT_EQ(Utf8Part("\xED\xBF\xBF", Utf8Range::AnyNumber), Part(0xDFFF, 3));
    EXPECT_EQ(Utf8Part("\xF4\x90\x80\x80", Utf8Range::AnyNumber), Part(0x110000, 4));
    EXPECT_EQ(Utf8Part("\xF4\xBF\xBF\xBF", Utf8Range::AnyNumber), Part(0x13FFFF, 4));
    EXPECT_EQ(Utf8Part("\xE0\x9F\xBF", Utf8Range::AnyNumber), Part(kNoCharacter, 1));
    EXPECT_EQ(Utf8Part("\xF0\x8F\xBF\xBF", Utf8Range::AnyNumber), Part(kNoCharacter, 1));
    EXPECT_EQ(Utf8Part("\xF5\x80\x80\x80", Utf8Range::AnyNumber), Part(kNoCharacter, 1));
}

TEST(Utf8, PairsAreJoinedWhereWideTextsAreUtf16)
{
    const std::wstring pair = WideOf({0xD834, 0xDD1E});
    EXPECT_EQ(WidePart(pair), kWideIsUtf16 ? Part(0x1D11E, 2) : Part(0xD834, 1));
    EXPECT_EQ(Utf8FromWide(pair), kWideIsUtf16 ? "\xF0\x9D\x84\x9E" : "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(WideOf(0x1D11E).size(), kWideIsUtf16 ? 2u : 1u);
    EXPECT_EQ(WideOf(0x1D11E), L"\U0001D11E");
}

TEST(Utf8, CharactersPastU_FFFFAndTheirSurrogates)
{
    for (const auto& [character, high, low] :
         {std::tuple<char32_t, char32_t, char32_t>{0x10000, 0xD800, 0xDC00},
          {0x1D11E, 0xD834, 0xDD1E},
          {0x10FFFF, 0xDBFF, 0xDFFF}}) {
        EXPECT_EQ(HighSurrogateOf(character), high);
        EXPECT_EQ(LowSurrogateOf(character), low);
        EXPECT_EQ(JoinSurrogates(high, low), character);
        EXPECT_TRUE(IsHighSurrogate(high) && !IsHighSurrogate(low) && !IsLowSurrogate(high) &&
                    IsLowSurrogate(low));
    }
    EXPECT_FALSE(IsHighSurrogate(0xD7FF) || IsLowSurrogate(0xE000));
}

TEST(Utf8, SurrogatesAloneComeOutAsTheyAre)
{
    EXPECT_EQ(WidePart(WideOf({0xD834})), Part(0xD834, 1));
    EXPECT_EQ(WidePart(WideOf({0xD834, 'x'})), Part(0xD834, 1));
    EXPECT_EQ(WidePart(WideOf({0xD834, 0xD834, 0xDD1E})), Part(0xD834, 1));
    EXPECT_EQ(WidePart(WideOf({0xDD1E, 0xD834})), Part(0xDD1E, 1));
    if (!kWideIsUtf16) {
        EXPECT_EQ(WidePart(WideOf({0x110000})), Part(0x110000, 1));
        EXPECT_EQ(WidePart(WideOf({0xFFFFFFFF})), Part(0xFFFFFFFF, 1));
    }
}

TEST(Utf8, WholeTexts)
{
    EXPECT_EQ(Utf8FromWide(L""), "");
    EXPECT_EQ(Utf8FromWide(L"a\u00E4\u20AC\U0001D11E"), "a\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E");
    EXPECT_EQ(Utf8FromWide(WideOf({'a', 0xDC00, 'b', 0xD800})), "a\xEF\xBF\xBD"
                                                                "b\xEF\xBF\xBD");
    EXPECT_EQ(WideFromUtf8(""), L"");
    EXPECT_EQ(WideFromUtf8("a\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E"), L"a\u00E4\u20AC\U0001D11E");
    EXPECT_EQ(WideFromUtf8("a\xED\xA0\x80"), std::nullopt);
    EXPECT_EQ(WideFromUtf8("\xF0\x9D\x84"), std::nullopt);
}

TEST(Utf8, EachInvalidByteIsReplacedInAValidText)
{
    EXPECT_EQ(ValidUtf8("a\xC3\xA4"), "a\xC3\xA4");
    EXPECT_EQ(ValidUtf8("\xED\xA0\x80"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(ValidUtf8("\xE1\x80z\xE1\x80\xC3\xA4"),
              "\xEF\xBF\xBD\xEF\xBF\xBDz\xEF\xBF\xBD\xEF\xBF\xBD\xC3\xA4");
}

TEST(Utf8, EachInvalidPartIsReplacedInAWideText)
{
    EXPECT_EQ(Widened(""), L"");
    EXPECT_EQ(Widened("a\xC3\xA4\xF0\x9D\x84\x9E"), L"a\u00E4\U0001D11E");
    EXPECT_EQ(Widened("\xED\xA0\x80"), L"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(Widened("\xE1\x80z\xF1\x80\x80\xC3\xA4"), L"\uFFFDz\uFFFD\u00E4");
}
