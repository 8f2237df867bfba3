// Reads the archives that keep the inputs of a target: plain ustar files, as fuzz/archive.py writes them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// A regular file of an archive. Its bytes belong to the archive's own.
struct ArchiveEntry {
    std::string name;
    std::string_view bytes;
};

// The regular files of an archive, in its order; entries of other kinds are left out. Throws
// std::runtime_error for bytes that are no whole archive: a wrong checksum, an entry that is cut off, no two
// empty blocks at the end.
std::vector<ArchiveEntry> ReadArchive(std::string_view bytes);
