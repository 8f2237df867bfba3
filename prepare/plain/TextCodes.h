// The codes that texts of all types have: %%c, \U+00B0, ^I.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace prepare {

// Lines that run along a text, as bits.
inline constexpr std::uint8_t kUnderline = 1;
inline constexpr std::uint8_t kOverline = 2;
inline constexpr std::uint8_t kStrike = 4;

struct TextCode {
    std::size_t size = 0;     // in bytes; 0: what was given begins with no code
    std::string letters;      // what the code means, in UTF-8; maybe a tab or a line feed, or nothing
    std::uint8_t toggled = 0; // lines that begin or end here
    bool isWrong = false;     // it means no character, and letters are U+FFFD
};

// What the report says of a wrong code.
inline constexpr std::string_view kWrongCode = "a code that is no character is U+FFFD";

// Reads the code that a text begins with:
// - %%d, %%p, %%c, %%% and %%nnn (a character of the code page, such as "ANSI_1252"), %%u, %%o and %%k;
// - \U+XXXX, and any number of \M+nXXXX in a row (characters of an East Asian code page);
// - a caret and the letter of a control character, or a blank for the caret itself.
// Throws std::bad_alloc.
TextCode ReadTextCode(std::string_view text, std::string_view codePage);

// Adds letters to the end of a text: without control characters, but with a blank for each tab, line feed and
// carriage return.
void AppendWithoutControls(std::string& text, std::string_view letters);

} // namespace prepare
