// Numbers in the texts of the module's operations.
#pragma once

#include <string_view>

namespace svghost {

// True for a number that a viewer can hold: finite, and in the range of a 32-bit float.
bool IsDrawable(double number);

// Reads the decimal number that a text begins with and moves at to its end. shortText is the number without
// unneeded zeros at its end, in the text itself or in one that lives as long as the program. False for
// anything that is not a drawable number, the words for infinity and not-a-number included. The text ends
// with a zero.
bool ScanNumber(const wchar_t*& at, double& number, std::wstring_view& shortText);

// The same of a text after whose end kScanAhead more bytes can be read.
bool ScanNumberAhead(const char*& at, double& number, std::string_view& shortText);

// Reads a text that is one number and nothing else, blanks at both ends allowed.
bool ParseNumber(const wchar_t* text, double& number, std::wstring_view& shortText);

} // namespace svghost
