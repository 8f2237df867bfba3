// Texts of the drawing made fit for an XML file.
#ifndef SVGHOST_XMLTEXT_H
#define SVGHOST_XMLTEXT_H

#include <string>
#include <string_view>

namespace svghost {

// The text in UTF-8. UTF-16 pairs are joined where wchar_t is 16 bits wide; lone surrogates, values beyond
// Unicode and characters that XML does not allow in any spelling become U+FFFD.
std::string utf8Of(std::wstring_view text);

// The same for a UTF-8 text; bytes that are no UTF-8 become U+FFFD.
std::string validUtf8(std::string_view text);

// Appends an XML name part that stands for exactly this text: ASCII letters, digits, '-', '.' and '_' as they
// are, any other character (and an '_' before an 'x') as _xHH_ with its hexadecimal number.
void appendXmlName(std::string& out, std::wstring_view text);

// True when text can follow "data-" in the name of an attribute: ASCII letters, digits, '-', '.' and '_'.
bool isAttributeNamePart(std::wstring_view text);

// The number of characters in text, a joined pair being one.
std::size_t countCharacters(std::wstring_view text);

} // namespace svghost

#endif
