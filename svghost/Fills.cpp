#include "svghost/Fills.h"

#include "svghost/AgreedSymbols.h"

namespace svghost {

bool IsFill(const Symbol& symbol)
{
    if (symbol.definition != 1 || !symbol.name->name.starts_with(kFillPrefix) || !symbol.first)
        return false;
    const Node* node = symbol.first;
    const auto passAll = [&node](Kind kind) {
        while (node && node->kind == kind && node->Number(AttributeId::Rotate, 0) == 0)
            node = node->next;
    };
    passAll(Kind::Polygon);
    const bool hasEdges = node != symbol.first;
    passAll(Kind::Polyline);
    return hasEdges && !node;
}

bool IsMask(const Symbol& symbol)
{
    return symbol.isFill && symbol.name->name.starts_with(kMaskPrefix);
}

} // namespace svghost
