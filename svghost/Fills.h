// Symbols that are areas.
#pragma once

#include "svghost/Node.h"

namespace svghost {

// Whether the symbol has a name for fills, and nothing but polygons in it, which are drawn where they are,
// and polylines after them, which cover the area in other hosts.
bool IsFill(const Symbol& symbol);

// Whether what is in a fill is one of its edges.
inline bool IsFillEdge(const Node& node)
{
    return node.kind == Kind::Polygon;
}

// Whether the symbol is a fill that only hides what was drawn before it. The symbol has been laid out.
bool IsMask(const Symbol& symbol);

// Calls take(shape) for the polygons of a fill that are drawn.
template <class Take>
void ForFillEdges(const Symbol& fill, const Take& take)
{
    for (const Node* node = fill.first; node && IsFillEdge(*node); node = node->next) {
        const auto& shape = static_cast<const Shape&>(*node);
        if (!shape.isLeftOut && !shape.isHidden && !shape.data.empty())
            take(shape);
    }
}

} // namespace svghost
