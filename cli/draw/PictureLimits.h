// How much a picture may hold.
#pragma once

#include <cstddef>
#include <filesystem>

namespace plexorn {

// How many elements the picture of the drawing in a file may have. A drawing that a program wrote has thirty
// bytes and more for each of them; what makes more out of fewer bytes is made to fill memory.
std::size_t MostElements(const std::filesystem::path& drawing);

// How many bytes the picture of the drawing in a file may have. That of a drawing from a program is seldom
// twice as large as its file.
std::size_t MostBytes(const std::filesystem::path& drawing);

} // namespace plexorn
