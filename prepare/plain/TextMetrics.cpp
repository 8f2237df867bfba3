#include "prepare/plain/TextMetrics.h"

#include "base/Ideographs.h"
#include "base/Utf8.h"

#include <iterator>

namespace prepare {

namespace {

// Of what the table lacks: about the mean of small letters.
constexpr std::uint16_t kUsualWidth = 756;

// The height of an x.
constexpr double kSmallHeight = 0.75;

std::uint16_t WidthInTable(char32_t character)
{
    if (character >= 0x20 && character < 0x20 + std::size(kWidthsFrom0020))
        return kWidthsFrom0020[character - 0x20];
    if (character >= 0x1E00 && character < 0x1E00 + std::size(kWidthsFrom1E00))
        return kWidthsFrom1E00[character - 0x1E00];
    if (character >= 0x2000 && character < 0x2000 + std::size(kWidthsFrom2000))
        return kWidthsFrom2000[character - 0x2000];
    return kNoWidth;
}

// Katakana and Hangul in half the usual width.
bool IsHalfWide(char32_t character)
{
    return character >= 0xFF61 && character <= 0xFFDC;
}

} // namespace

double CharacterWidth(char32_t character)
{
    const std::uint16_t width = WidthInTable(character);
    if (width != kNoWidth)
        return width / 1000.0;
    if (IsIdeograph(character))
        return kFontEm / 1000.0;
    return (IsHalfWide(character) ? kFontEm / 2 : kUsualWidth) / 1000.0;
}

double TextWidth(std::string_view text)
{
    double width = 0;
    while (!text.empty()) {
        const DecodedCharacter next = DecodeUtf8(text);
        width += CharacterWidth(next.value);
        text.remove_prefix(next.size);
    }
    return width;
}

bool HasKnownWidth(std::string_view text)
{
    while (!text.empty()) {
        const DecodedCharacter next = DecodeUtf8(text);
        if (WidthInTable(next.value) == kNoWidth && !IsIdeograph(next.value))
            return false;
        text.remove_prefix(next.size);
    }
    return true;
}

InkReach InkReachOf(std::string_view text)
{
    constexpr std::string_view kWithTails = "gjpqyQ,;()[]{}|_@$";
    constexpr std::string_view kWithoutStems = "acegmnopqrsuvwxyz.,:;-_ ";
    InkReach reach;
    if (text.find_first_of(kWithTails) != std::string_view::npos)
        reach.bottom = -kDescent;
    if (text.find_first_not_of(kWithoutStems) == std::string_view::npos)
        reach.top = kSmallHeight;
    return reach;
}

} // namespace prepare
