// Control characters beyond ASCII.
#pragma once

#include <string_view>

namespace plexorn {

// Whether a UTF-8 text begins with a character from U+0080 to U+009F.
constexpr bool IsUpperControl(std::string_view text)
{
    return text.size() > 1 && text[0] == '\xC2' && text[1] >= '\x80' && text[1] < '\xA0';
}

} // namespace plexorn
