// Control characters outside ASCII.
#pragma once

#include <string_view>

namespace plexorn {

// Whether a UTF-8 text begins with a character from U+0080 to U+009F.
constexpr bool IsUpperControl(std::string_view text)
{
    const auto second = static_cast<unsigned char>(text.size() > 1 ? text[1] : '\0');
    return second >= 0x80 && second < 0xA0 && text[0] == '\xC2';
}

} // namespace plexorn
