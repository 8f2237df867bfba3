// The signs of geometric tolerances, which drawings write as letters of a font of their own.
#pragma once

#include <string_view>

namespace prepare {

// Whether text in that font is signs: "gdt", "gdt.shx", "GDT|c0".
bool IsSignFont(std::string_view font);

// The sign that such a letter means, in UTF-8; empty for a letter without one.
std::string_view ToleranceSign(char letter);

} // namespace prepare
