#include "svghost/LayerMarks.h"

#include "svghost/AgreedSymbols.h"

namespace svghost {

bool IsLayerMark(const Symbol& symbol)
{
    return symbol.kind == Kind::Symbol && !symbol.first && symbol.definition == 1 &&
           symbol.name->name.starts_with(kLayerPrefix);
}

const Symbol* LayerMarkOf(const Node& node)
{
    if (node.kind != Kind::Use)
        return nullptr;
    const Symbol* target = static_cast<const Use&>(node).target->definition;
    return target && IsLayerMark(*target) ? target : nullptr;
}

std::wstring_view LayerOf(const Symbol& mark)
{
    return mark.name->name.substr(kLayerPrefix.size());
}

} // namespace svghost
