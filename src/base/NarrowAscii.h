// Wide texts of ASCII.
#pragma once

#include <string_view>

// Writes a wide text with a byte for each character, which out has room for; false if not all are ASCII, and
// then what is written means nothing.
bool NarrowAscii(std::wstring_view text, char* out);
