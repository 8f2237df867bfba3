// Characters that texts and names spell out as \U+XXXX, in UTF-16.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace prepare {

struct UnicodeEscape {
    std::size_t size = 0;   // in bytes; 0: the text does not begin with one
    char32_t character = 0; // half a pair stays a surrogate
};

// The escape, or two that are one character, that the text begins with.
UnicodeEscape ReadUnicodeEscape(std::string_view text);

// The name with the characters that it spells out, in UTF-8. Blanks and control characters stay escapes:
// names are read without the blanks around them.
std::string NameWithoutEscapes(std::string_view name);

} // namespace prepare
