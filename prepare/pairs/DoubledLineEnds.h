// Drawings of which a program made two line ends of each.
#pragma once

#include <cstddef>
#include <string_view>

namespace prepare {

// Whether an empty line follows each of the first lines of a drawing, whose line ends are line feeds.
bool AreLineEndsDoubled(std::string_view front);

// Leaves out the empty line after each line, in parts of a drawing that come one after the other.
class EmptyLines {
public:
    // Takes them out of a part; returns its new size.
    std::size_t LeaveOut(char* bytes, std::size_t size);

private:
    bool m_isAfterLine = false; // where an empty line is left out
};

} // namespace prepare
