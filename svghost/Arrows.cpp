#include "svghost/Arrows.h"

#include "svghost/SvgHostDocument.h"

namespace svghost {

double ArrowSize(const SvgHostDocument& document, const Node& node, ArrowEnd end)
{
    const bool hasEnds = node.kind == Kind::Line || node.kind == Kind::Path || node.kind == Kind::Polyline ||
                         node.kind == Kind::Polygon;
    if (!node.extra || !hasEnds)
        return 0;
    const AttributeId typeId =
        end == ArrowEnd::Begin ? AttributeId::BeginArrowType : AttributeId::EndArrowType;
    const ExtraAttribute* type = node.Find(typeId);
    if (!type || document.ValueOf(typeId, type->value).source != L"stealth arrow")
        return 0;
    const double size =
        node.Number(end == ArrowEnd::Begin ? AttributeId::BeginArrowSize : AttributeId::EndArrowSize, 1);
    return size > 0 && size <= kLargestArrow ? size : 1;
}

} // namespace svghost
