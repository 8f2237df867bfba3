// What the command says about a drawing.
#ifndef PLEXORN_CLI_MESSAGES_H
#define PLEXORN_CLI_MESSAGES_H

#include "svghost/SvgHost.h"

#include <chrono>
#include <string>
#include <string_view>

namespace plexorn {

// The line that a message of the reader names at its end ("Line:12", "Line (12)" or "(12)"), as its digits;
// empty when it names none.
std::string_view LineOfMessage(std::string_view message);

// Prints every report that document keeps to the standard error stream, one "FILE:LINE: text" each.
void PrintMessages(const SvgHostDocument* document, std::string_view file);

// Prints one "FILE: text" to the standard error stream.
void PrintError(std::string_view file, std::string_view text);

// The closing line: what was drawn and where to, how many messages there were, how long it took, and what
// the host met that the picture does not show.
std::string Summary(const SvgHostStatistics& statistics, size_t messages, std::chrono::milliseconds time,
                    std::string_view output);

} // namespace plexorn

#endif
