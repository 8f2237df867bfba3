// Names with * and ?, for systems whose shells leave them to the command.
#pragma once

#include <string>
#include <vector>

namespace plexorn {

// Whether name has a * or a ? that is a pattern; the start of a \\?\ path is not.
bool HasWildcards(const std::string& name);

// The files and folders that name matches, sorted, with slashes between folders. A * matches any characters
// but slashes, a ? matches one; ASCII letters match in either case. Each part of a path may have them. name
// itself when a file has exactly that name, or when nothing matches.
std::vector<std::string> ExpandWildcards(const std::string& name);

} // namespace plexorn
