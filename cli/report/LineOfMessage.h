// The line that a message of the module is about.
#pragma once

#include <string_view>

namespace plexorn {

// The line that message names at its end, in one of the forms of host/ReportKinds.h ("Line:12" or "(12)"
// after a blank), as its digits; empty when it names none.
std::string_view LineOfMessage(std::string_view message);

// message without that line and the words that lead to it; all of it when it names none.
std::string_view WithoutLine(std::string_view message);

} // namespace plexorn
