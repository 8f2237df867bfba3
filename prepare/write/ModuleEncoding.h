// Texts in the encoding in which the module reads them: the system's ANSI code page on Windows, UTF-8
// elsewhere.
#pragma once

#include <string>

namespace prepare {

// Brings a text, which is UTF-8, into that encoding; false if it has letters that the encoding lacks, which
// are replaced then.
bool EncodeForModule(std::string& text);

} // namespace prepare
