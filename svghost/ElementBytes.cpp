#include "svghost/ElementBytes.h"

#include "svghost/Fills.h"
#include "svghost/TextSymbols.h"

namespace svghost {

namespace {

std::size_t BytesOfExtras(const Node& node)
{
    std::size_t bytes = 0;
    for (const ExtraAttribute* extra = node.extra; extra; extra = extra->next)
        if (extra->id == AttributeId::Other)
            bytes += static_cast<const OtherAttribute*>(extra)->name.size() +
                     static_cast<const OtherAttribute*>(extra)->text.size();
    return bytes;
}

// Those of the texts of a line, and of the elements that they are in, but for the line's own.
std::size_t BytesOfWriting(const Symbol& writing)
{
    constexpr std::size_t kRunBytes = 150;
    const Use* const inner = InnerUse(writing);
    const Symbol& line = inner ? *inner->target->definition : writing;
    std::size_t bytes = LengthOfWriting(line);
    for (const Node* run = line.first->next; run; run = run->next)
        bytes += kRunBytes;
    return bytes;
}

} // namespace

std::size_t LongBytesOf(const SvgHostDocument& document, const Node& node)
{
    const std::size_t bytes =
        document.ValueOf(AttributeId::DashArray, node.dashArray).text.size() + BytesOfExtras(node);
    switch (node.kind) {
    case Kind::Text:
        return bytes + static_cast<const Text&>(node).text.size();
    case Kind::Use:
        return bytes + static_cast<const Use&>(node).target->name.size();
    case Kind::Path:
    case Kind::Polyline:
    case Kind::Polygon:
        return bytes + static_cast<const Shape&>(node).data.size();
    default:
        return bytes;
    }
}

std::size_t LongBytesOf(const Symbol& symbol)
{
    if (symbol.isWriting)
        return BytesOfWriting(symbol);
    std::size_t bytes = 0;
    if (symbol.isFill)
        ForFillEdges(symbol, [&](const Shape& edge) { bytes += edge.data.size(); });
    return bytes;
}

} // namespace svghost
