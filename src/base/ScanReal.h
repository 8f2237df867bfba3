// Numbers in a text of several, such as the data of a path.
#pragma once

#include <cstddef>
#include <string_view>

// Reads the decimal number that a text begins with, after a sign or none, but no blanks, and returns its end;
// null when it begins with no number, or with an exponent that has no digits. shortText is the number without
// unneeded zeros at its end, in the text itself or in one that lives as long as the program. Char is char or
// wchar_t; the text ends with a zero.
template <class Char>
const Char* ScanReal(const Char* text, double& value, std::basic_string_view<Char>& shortText);

// The same of a text after whose end so many more bytes can be read.
inline constexpr std::size_t kScanAhead = 24;
const char* ScanRealAhead(const char* text, double& value, std::string_view& shortText);
