// The names of encodings.
#pragma once

#include <string_view>

namespace prepare {

// The name under which the system knows the code page that a drawing or a user calls name.
std::string_view NumberedCodePage(std::string_view name);

// Whether name is one of UTF-8's.
bool IsUtf8(std::string_view name);

// Whether name is that of an encoding, in any of its spellings.
bool IsEncoding(std::string_view name);

} // namespace prepare
