// Symbols that say on which layer is what follows.
#pragma once

#include "svghost/Node.h"

namespace svghost {

// Whether the symbol has a name for layers and is empty.
bool IsLayerMark(const Symbol& symbol);

// The mark that a node uses; null for any other node.
const Symbol* LayerMarkOf(const Node& node);

// The name of the layer that begins at the mark; empty: none does.
std::wstring_view LayerOf(const Symbol& mark);

} // namespace svghost
