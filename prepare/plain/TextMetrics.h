// How much room letters take. The font is not known to the drawing's reader, and what shows the picture
// chooses its own: the widths are those of DejaVu Sans Condensed, which is hardly wider than the sans-serif
// fonts that drawings name most. Lines broken by a wider font would end before their author's.
#pragma once

#include "prepare/plain/FontWidths.h"

#include <string_view>

namespace prepare {

// How far tails reach below the base line, in heights of capitals.
inline constexpr double kDescent = kFontDescent / 1000.0;

// From one base line to the next, in heights of capitals.
inline constexpr double kLineDistance = 5.0 / 3;

// The advance of one character, in heights of capitals. East Asian characters are an em wide.
double CharacterWidth(char32_t character);

// The same of a text in UTF-8.
double TextWidth(std::string_view text);

// Whether the widths of all its characters are known, not guessed.
bool HasKnownWidth(std::string_view text);

// From where to where the letters of a text reach, in heights of capitals above the base line: capitals to 1,
// small letters without stems to less, tails to -kDescent.
struct InkReach {
    double bottom = 0;
    double top = 1;
};
InkReach InkReachOf(std::string_view text);

} // namespace prepare
