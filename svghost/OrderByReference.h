// Which symbols draw which.
#pragma once

#include "svghost/Node.h"

#include <vector>

namespace svghost {

// Puts the symbols in an order in which each comes after those that it uses, cycles aside, and numbers the
// cycles: symbols that reach each other through uses get the same cycle. Takes time linear in symbols and
// uses, and no stack however long a chain of uses is.
std::vector<Symbol*> OrderByReference(const std::vector<Symbol*>& symbols);

} // namespace svghost
