#include "svghost/Fills.h"

#include "svghost/AgreedSymbols.h"

namespace svghost {

bool IsFill(const Symbol& symbol)
{
    if (symbol.definition != 1 || !symbol.name->name.starts_with(kFillPrefix) || !symbol.first)
        return false;
    for (const Node* node = symbol.first; node; node = node->next)
        if (node->kind != Kind::Polygon || node->Number(AttributeId::Rotate, 0) != 0)
            return false;
    return true;
}

bool IsMask(const Symbol& symbol)
{
    return symbol.isFill && symbol.name->name.starts_with(kMaskPrefix);
}

} // namespace svghost
