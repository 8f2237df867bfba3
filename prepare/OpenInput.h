// Files by their paths in UTF-8.
#pragma once

#include <cstdint>
#include <cstdio>

namespace prepare {

// Opens a file or a pipe to read its bytes; null when that fails, and for a folder or a device, which may
// have no end. The caller closes it.
std::FILE* OpenInput(const char* path);

// The size of a file in bytes; 0 when it has none, such as a pipe.
std::uint64_t SizeOfInput(std::FILE* file);

} // namespace prepare
