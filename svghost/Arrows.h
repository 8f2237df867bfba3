// The arrow heads that lines ask for.
#pragma once

#include "svghost/Node.h"

#include <map>
#include <utility>

namespace svghost {

// Length of the head of an arrow of size 1, in drawing units: as long as the text of a dimension is high.
inline constexpr double kArrowLength = 2.0;
inline constexpr double kArrowHalfWidth = 0.6;
inline constexpr double kLargestArrow = 1e6;

enum class ArrowEnd { Begin, End };

// The size of the head that node has at that end, 0 for none. A type other than "stealth arrow" has none; a
// size that is missing, no positive number or larger than kLargestArrow counts as 1.
double ArrowSize(const SvgHostDocument& document, const Node& node, ArrowEnd end);

// The looks of the arrow heads in a document (index of the stroke's value, size), numbered from 1.
using ArrowLooks = std::map<std::pair<std::uint32_t, double>, std::size_t>;

} // namespace svghost
