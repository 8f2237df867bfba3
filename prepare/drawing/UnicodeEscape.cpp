#include "prepare/drawing/UnicodeEscape.h"

#include "base/Numbers.h"
#include "base/Utf8.h"

#include <algorithm>
#include <optional>

namespace prepare {

namespace {

constexpr std::size_t kEscapeSize = sizeof("\\U+XXXX") - 1;

std::optional<char32_t> ReadUnit(std::string_view text)
{
    if (text.size() < kEscapeSize || (!text.starts_with("\\U+") && !text.starts_with("\\u+")))
        return std::nullopt;
    const auto unit = ParseHex(text.substr(3, 4));
    return unit ? std::optional(static_cast<char32_t>(*unit)) : std::nullopt;
}

bool IsBlankOrControl(char32_t character)
{
    return character <= 0x20 || (character >= 0x7F && character < 0xA0);
}

} // namespace

UnicodeEscape ReadUnicodeEscape(std::string_view text)
{
    const std::optional<char32_t> first = ReadUnit(text);
    if (!first)
        return {};
    if (IsHighSurrogate(*first)) {
        const std::optional<char32_t> second = ReadUnit(text.substr(kEscapeSize));
        if (second && IsLowSurrogate(*second))
            return {2 * kEscapeSize, JoinSurrogates(*first, *second)};
    }
    return {kEscapeSize, *first};
}

std::string NameWithoutEscapes(std::string_view name)
{
    std::string text;
    text.reserve(name.size());
    while (!name.empty()) {
        const UnicodeEscape escape = ReadUnicodeEscape(name);
        const bool isSpelledOut = escape.size > 0 && !IsBlankOrControl(escape.character);
        // A backslash that begins no escape is kept, with what follows it up to the next one.
        const std::size_t size = isSpelledOut ? escape.size : std::min(name.find('\\', 1), name.size());
        if (isSpelledOut)
            AppendUtf8(text, escape.character);
        else
            text.append(name.substr(0, size));
        name.remove_prefix(size);
    }
    return text;
}

} // namespace prepare
