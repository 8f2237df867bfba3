// Temporary files of commands that were killed.
#pragma once

#include <filesystem>

namespace plexorn {

// A name for a temporary file of this process, which nobody can guess: ".plexorn-", the process's number, 16
// hexadecimal digits, ".tmp".
std::filesystem::path TemporaryName();

// Removes those files from a folder whose process is gone; once for each folder. Threads may call it
// together.
void RemoveLeftovers(const std::filesystem::path& folder);

} // namespace plexorn
