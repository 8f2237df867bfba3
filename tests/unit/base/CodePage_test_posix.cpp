// UTF-8, well and ill formed.
#include "base/CodePage.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <optional>
#include <random>
#include <set>
#include <string>

namespace {

std::wstring WideAs(std::string_view narrow)
{
    std::wstring wide(narrow.size(), L'\0');
    wide.resize(ToWide(narrow, wide.data()));
    return wide;
}

std::string Encode(std::uint32_t character)
{
    const auto byte = [](std::uint32_t value) { return static_cast<char>(value); };
    if (character < 0x80)
        return {byte(character)};
    if (character < 0x800)
        return {byte(0xC0 | character >> 6), byte(0x80 | (character & 0x3F))};
    if (character < 0x10000)
        return {byte(0xE0 | character >> 12), byte(0x80 | (character >> 6 & 0x3F)),
                byte(0x80 | (character & 0x3F))};
    return {byte(0xF0 | character >> 18), byte(0x80 | (character >> 12 & 0x3F)),
            byte(0x80 | (character >> 6 & 0x3F)), byte(0x80 | (character & 0x3F))};
}

bool IsCharacter(std::uint32_t value)
{
    return value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
}

// The character of a whole sequence: the one whose sequence it is.
std::optional<wchar_t> CharacterOf(std::string_view sequence)
{
    static constexpr std::uint32_t kLeadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    if (sequence.size() >= std::size(kLeadBits))
        return {};
    std::uint32_t value = static_cast<unsigned char>(sequence[0]) & kLeadBits[sequence.size()];
    for (const char byte : sequence.substr(1))
        value = value << 6 | (static_cast<unsigned char>(byte) & 0x3F);
    if (!IsCharacter(value) || Encode(value) != sequence)
        return {};
    return static_cast<wchar_t>(value);
}

// A decoder that knows every beginning of a character's sequence by heart.
class Decoder {
public:
    Decoder()
    {
        for (std::uint32_t character = 0; character <= 0x10FFFF;
             character += 64) { // the last byte is no matter
            const std::string sequence = Encode(character);
            for (std::size_t size = 1; size < sequence.size() && IsCharacter(character); ++size)
                m_beginnings.insert(sequence.substr(0, size));
        }
    }

    std::wstring Decode(const std::string& narrow) const
    {
        std::wstring wide;
        for (std::size_t at = 0; at < narrow.size();) {
            std::size_t size = 1;
            while (at + size < narrow.size() && !CharacterOf(narrow.substr(at, size)) &&
                   (m_beginnings.count(narrow.substr(at, size + 1)) != 0 ||
                    CharacterOf(narrow.substr(at, size + 1))))
                ++size;
            wide += CharacterOf(narrow.substr(at, size)).value_or(L'\uFFFD');
            at += size;
        }
        return wide;
    }

private:
    std::set<std::string> m_beginnings;
};

const Decoder& TheDecoder()
{
    static const Decoder decoder;
    return decoder;
}

} // namespace

TEST(CodePage, EveryCharacterOfUtf8IsRead)
{
    for (std::uint32_t character = 1; character <= 0x10FFFF; ++character) {
        if (IsCharacter(character)) {
            ASSERT_EQ(WideAs(Encode(character)), std::wstring(1, static_cast<wchar_t>(character)))
                << character;
        }
    }
}

TEST(CodePage, EachMaximalPartOfAnIllFormedSequenceIsOneReplacement)
{
    EXPECT_EQ(WideAs("a\xF1\x80\x80\xE1\x80\xC2"
                     "b\x80"
                     "c\x80\xBF"
                     "d"),
              L"a\uFFFD\uFFFD\uFFFDb\uFFFDc\uFFFD\uFFFDd");
    EXPECT_EQ(WideAs("\xC0\xAF\xE0\x80\xBF\xF0\x81\x82"
                     "A"),
              L"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA");                        // overlong
    EXPECT_EQ(WideAs("\xED\xA0\x80\xED\xBF\xBF"), L"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"); // surrogates
    EXPECT_EQ(WideAs("\xF4\x91\x92\x93\xFF"
                     "A\x80\xBF"
                     "B"),
              L"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA\uFFFD\uFFFDB"); // beyond the last character
    EXPECT_EQ(WideAs("\xE4"), L"\uFFFD");
    EXPECT_EQ(WideAs("\xF0\x9F\x98"), L"\uFFFD"); // the text ends within a sequence
}

TEST(CodePage, EveryTwoBytesAreReadAsTheDecoderReadsThem)
{
    for (int first = 0x80; first < 256; ++first)
        for (int second = 0; second < 256; ++second) {
            const std::string text = {static_cast<char>(first), static_cast<char>(second)};
            ASSERT_EQ(WideAs(text), TheDecoder().Decode(text)) << first << ' ' << second;
        }
}

TEST(CodePage, RandomBytesAreReadAsTheDecoderReadsThem)
{
    static constexpr unsigned char kBytes[] = {'a',  0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0,
                                               0xC1, 0xC2, 0xDF, 0xE0, 0xE1, 0xEC, 0xED, 0xEE,
                                               0xEF, 0xF0, 0xF1, 0xF3, 0xF4, 0xF5};
    std::minstd_rand random(1);
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        for (std::size_t size = random() % 9; size != 0; --size)
            text += static_cast<char>(random() % 2 == 0 ? kBytes[random() % std::size(kBytes)]
                                                        : 0x80 + random() % 64);
        ASSERT_EQ(WideAs(text), TheDecoder().Decode(text)) << testing::PrintToString(text);
    }
}

TEST(CodePage, PathIsUtf8)
{
    EXPECT_EQ(ToNarrowPath(L"a\u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF"),
              "a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
}

TEST(CodePage, WhatIsNoCharacterIsReplacedInAPath)
{
    const wchar_t path[] = {L'a',
                            static_cast<wchar_t>(0xD800),
                            static_cast<wchar_t>(0xDFFF),
                            static_cast<wchar_t>(0x110000),
                            static_cast<wchar_t>(-1),
                            L'b',
                            L'\0'};
    EXPECT_EQ(ToNarrowPath(path), "a\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"
                                  "b");
}
