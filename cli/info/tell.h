// What a drawing holds, as text.
#ifndef PLEXORN_CLI_INFO_TELL_H
#define PLEXORN_CLI_INFO_TELL_H

#include "cli/info/drawing.h"

#include <string>

namespace plexorn {

// A table for people, in UTF-8 and without control characters.
std::string TableOf(const std::string& file, const DrawingInfo& info, bool withTexts);

// One JSON object and a line end; docs/manual.md tells its members.
std::string JsonOf(const std::string& file, const DrawingInfo& info, bool withTexts);

// What a reader of the drawing should know besides the numbers, one sentence each.
std::vector<std::string> NotesOn(const DrawingInfo& info);

} // namespace plexorn

#endif
