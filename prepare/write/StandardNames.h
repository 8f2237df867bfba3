// Texts and names as any reader of R2000 drawings takes them: in the code page ANSI_1252, with escapes.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>

namespace prepare {

// A value without codes: \U+XXXX for characters that the code page lacks (and 0x80 to 0x9F, which have gaps),
// and for a backslash that would begin such a code; controls are blanks. At most 2000 bytes, whole
// characters.
std::string EscapedValue(std::string_view utf8);

// The same for the value of a TEXT, in which a percent sign or a caret may begin a code, too.
std::string EscapedText(std::string_view utf8, bool& isCut);

// Gives each name of a table its own valid form. Names that differ only in the case of ASCII letters are one
// name to readers.
class StandardNames {
public:
    // reserved: names that are in the table anyway; upper or lower case does not matter.
    explicit StandardNames(std::initializer_list<std::string_view> reserved);

    // name with characters that no name may have replaced, and a number after it if that is taken already.
    std::string Take(std::string_view name);

private:
    std::map<std::string, std::size_t> m_taken; // in lower case, with the number that may be free
};

} // namespace prepare
