#include "base/CodePage.h"

#include <cstdint>

namespace {

constexpr wchar_t kReplacement = 0xFFFD;

bool IsTrail(unsigned char byte, unsigned char low = 0x80, unsigned char high = 0xBF)
{
    return byte >= low && byte <= high;
}

// The well-formed sequences of UTF-8 by their first byte: how many bytes follow, and the range of the first
// of those (Unicode, table 3-7).
struct LEAD {
    int trails;
    unsigned char low, high;
};

LEAD LeadOf(unsigned char byte)
{
    if (byte >= 0xC2 && byte <= 0xDF)
        return {1, 0x80, 0xBF};
    if (byte >= 0xE0 && byte <= 0xEF)
        return {2, static_cast<unsigned char>(byte == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(byte == 0xED ? 0x9F : 0xBF)};
    if (byte >= 0xF0 && byte <= 0xF4)
        return {3, static_cast<unsigned char>(byte == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(byte == 0xF4 ? 0x8F : 0xBF)};
    return {0, 0, 0};
}

// Reads one character that begins with a byte of 0x80 or above, and moves at behind what it took.
wchar_t ReadCharacter(const unsigned char*& at, const unsigned char* end)
{
    const LEAD lead = LeadOf(*at);
    std::uint32_t value = *at++ & (0x3Fu >> lead.trails);
    if (lead.trails == 0)
        return kReplacement;
    for (int i = 0; i < lead.trails; ++i) {
        if (at == end || !(i == 0 ? IsTrail(*at, lead.low, lead.high) : IsTrail(*at)))
            return kReplacement;
        value = value << 6 | (*at++ & 0x3Fu);
    }
    return static_cast<wchar_t>(value);
}

void AppendUtf8(std::string& out, std::uint32_t value)
{
    const auto trail = [&](int shift) { out += static_cast<char>(0x80 | ((value >> shift) & 0x3F)); };
    if (value < 0x80) {
        out += static_cast<char>(value);
    } else if (value < 0x800) {
        out += static_cast<char>(0xC0 | (value >> 6));
        trail(0);
    } else if (value < 0x10000) {
        out += static_cast<char>(0xE0 | (value >> 12));
        trail(6);
        trail(0);
    } else {
        out += static_cast<char>(0xF0 | (value >> 18));
        trail(12);
        trail(6);
        trail(0);
    }
}

} // namespace

std::size_t ToWide(std::string_view narrow, wchar_t* wide)
{
    const unsigned char* at = reinterpret_cast<const unsigned char*>(narrow.data());
    const unsigned char* const end = at + narrow.size();
    wchar_t* out = wide;
    while (at != end)
        *out++ = *at < 0x80 ? static_cast<wchar_t>(*at++) : ReadCharacter(at, end);
    return static_cast<std::size_t>(out - wide);
}

std::string ToNarrowPath(const wchar_t* path)
{
    std::string narrow;
    for (; *path != L'\0'; ++path) {
        // NOLINTNEXTLINE(bugprone-signed-char-misuse,cert-str34-c): the characters are wide
        const std::uint32_t value = static_cast<std::uint32_t>(*path);
        const bool isCharacter = value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
        AppendUtf8(narrow, isCharacter ? value : static_cast<std::uint32_t>(kReplacement));
    }
    return narrow;
}
