// How large elements become in the file.
#pragma once

#include "svghost/SvgHostDocument.h"

#include <cstddef>

namespace svghost {

// How many bytes the texts, points, dashes and names of an element take, before escapes: all of it that may
// be long.
std::size_t LongBytesOf(const SvgHostDocument& document, const Node& node);

// The same for a symbol that is a line of writing or an area, wherever it is drawn; 0 for any other.
std::size_t LongBytesOf(const Symbol& symbol);

} // namespace svghost
