// Texts of the drawing as an XML file needs them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace svghost {

// The text in UTF-8. UTF-16 pairs are joined where wchar_t is 16 bits wide; lone surrogates, values beyond
// Unicode and characters that XML does not allow in any spelling become U+FFFD.
std::string XmlTextOf(std::wstring_view text);

// The same for a UTF-8 text; each invalid byte becomes U+FFFD.
std::string XmlTextOf(std::string_view text);

// Where a text is written. Only an attribute's value has its quotes, tabs and line ends escaped, and only a
// text its '>'.
enum class XmlPlace : std::uint8_t { Attribute = 1, Text = 2 };

// The number of bytes at the start of text that are written there as they are.
std::size_t CountPlain(std::string_view text, XmlPlace place);

// Writes the escape of a byte that CountPlain stops at, and returns its end.
inline constexpr std::size_t kLongestEscape = 6;
char* WriteEscape(char byte, char* out);

// The text, in UTF-8 of characters that XML allows, as it is written into an attribute.
std::string EscapedForAttribute(std::string_view text);

// Appends a part of an XML name that differs for every text: ASCII letters, digits, '-', '.' and '_' as they
// are, any other character (and an '_' before an 'x') as _xHH_ with its hexadecimal number.
void AppendXmlName(std::string& out, std::wstring_view text);

// True when text can follow "data-" in the name of an attribute: ASCII letters, digits, '-', '.' and '_'.
bool IsAttributeNamePart(std::wstring_view text);

// The number of characters in text, a joined pair being one.
std::size_t CountCharacters(std::wstring_view text);

// How many of them are East Asian ones, an em wide.
std::size_t CountIdeographs(std::wstring_view text);

} // namespace svghost
