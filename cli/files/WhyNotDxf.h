// Finds out from its first bytes whether a file can be an ASCII DXF.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace plexorn {

// How many bytes from the start of a file are enough to decide.
inline constexpr std::size_t kSniffedSize = 4096;

// What is to read the file. The module ends lines at line feeds alone; preparing at carriage returns, too.
enum class Taker : std::uint8_t { Module, Preparing };

// Why the file that begins with head (its first kSniffedSize bytes, fewer if it is shorter) is no ASCII DXF,
// as the end of a sentence: "is a ZIP archive; ...". Empty if it may well be one: its first line that is not
// blank is a group code.
std::string WhyNotDxf(std::string_view head, Taker taker);

} // namespace plexorn
