// Numbers as text: read from what the module formats, written as short as they can be.
#ifndef SVGHOST_NUMBERTEXT_H
#define SVGHOST_NUMBERTEXT_H

#include <string>
#include <string_view>

namespace svghost {

// True for a number that a viewer can hold: finite, and in the range of a 32-bit float.
bool isDrawable(double number);

// Reads one decimal number at at and moves at behind it. Its text is appended to out, without the zeros at
// its end that say nothing. False, with out unchanged, for anything that is no drawable number, the words
// for infinity and not-a-number included. Char is char or wchar_t, the text ends with a zero.
template <class Char>
bool scanNumber(const Char*& at, double& number, std::string& out);

// Reads a text that is one number and nothing else, blanks at both ends allowed.
bool parseNumber(const wchar_t* text, double& number, std::string& out);

// Appends the shortest text that reads back as number, which is drawable.
void appendNumber(std::string& out, float number);
void appendNumber(std::string& out, double number);

} // namespace svghost

#endif
