#include "prepare/plain/StyleResolver.h"

#include <cmath>

namespace prepare {

namespace {

constexpr std::int32_t kHeaviest = 211; // the format's heaviest weight

double UsablePatternScale(double scale)
{
    return scale > 0 && std::isfinite(scale) ? scale : 1;
}

} // namespace

// $LWDEFAULT is not in files of all releases; a quarter of a millimetre is its own default.
StyleResolver::StyleResolver(const Drawing& drawing)
    : m_drawing(drawing), m_layerZero(drawing.names.Find("0")), m_byLayer(drawing.names.Find("BYLAYER")),
      m_byBlock(drawing.names.Find("BYBLOCK")), m_continuous(drawing.names.Find("CONTINUOUS")),
      m_defaultWeight(drawing.header.Integer("$LWDEFAULT", 25)),
      m_lineTypeScale(UsablePatternScale(drawing.header.Real("$LTSCALE", 1)))
{
    if (m_defaultWeight < 0 || m_defaultWeight > kHeaviest)
        m_defaultWeight = 25;
}

const Layer* StyleResolver::LookLayer(NameId name) const
{
    if (name >= m_layers.size())
        m_layers.resize(m_drawing.names.Count());
    const Layer*& layer = m_layers[name];
    if (layer == nullptr)
        layer = m_drawing.FindLayer(name);
    return layer;
}

Style StyleResolver::OfNoInsert() const
{
    Style style;
    style.weight = m_defaultWeight;
    style.layer = m_layerZero;
    return style;
}

Style StyleResolver::Of(const Entity& entity, const Style& insert, bool isInBlock) const
{
    Style style;
    style.layer = isInBlock && IsLayerZero(entity.layer) ? insert.layer : entity.layer;
    const Layer* const layer = LayerOf(style.layer);
    style.colour = ColourOf(entity.colour, entity.trueColour, layer, insert.colour);
    style.lineType = LineTypeOf(entity.lineType, layer, insert.lineType);
    style.weight = WeightOf(entity.weight, layer, insert.weight);
    style.lineTypeScale = UsablePatternScale(entity.lineTypeScale) * m_lineTypeScale;
    return style;
}

Style StyleResolver::OfPart(const StyleOfPart& part, const Style& entity) const
{
    Style style = entity;
    if (part.layer != kNoName && !IsLayerZero(part.layer))
        style.layer = part.layer;
    const Layer* const layer = LayerOf(style.layer);
    style.colour = ColourOf(part.colour, part.trueColour, layer, entity.colour);
    if (part.lineType != kNoName)
        style.lineType = LineTypeOf(part.lineType, layer, entity.lineType);
    style.weight = WeightOf(part.weight, layer, entity.weight);
    return style;
}

bool StyleResolver::InheritsFromInsert(const Entity& entity) const
{
    return IsLayerZero(entity.layer) || entity.weight == kWeightByBlock ||
           (entity.colour == kByBlock && entity.trueColour == kNoTrueColour) ||
           (entity.lineType != kNoName && entity.lineType == m_byBlock) ||
           HasTrait(entity.type, Trait::OwnStyles);
}

Colour StyleResolver::ColourOf(std::int32_t colour, std::int32_t trueColour, const Layer* layer,
                               const Colour& byBlock)
{
    if (trueColour != kNoTrueColour)
        return {true, static_cast<std::uint32_t>(trueColour) & 0xFFFFFF, 7};
    if (colour == kByBlock)
        return byBlock;
    if (colour > 0 && colour < kByLayer)
        return {false, 0, colour};
    if (layer == nullptr)
        return {};
    if (layer->trueColour != kNoTrueColour)
        return {true, static_cast<std::uint32_t>(layer->trueColour) & 0xFFFFFF, 7};
    const std::int32_t index = std::abs(layer->colour);
    return {false, 0, index > 0 && index < kByLayer ? index : 7};
}

const LineType* StyleResolver::LineTypeOf(NameId lineType, const Layer* layer, const LineType* byBlock) const
{
    if (lineType != kNoName && lineType == m_byBlock)
        return byBlock;
    if (lineType == kNoName || lineType == m_byLayer)
        lineType = layer != nullptr ? layer->lineType : kNoName;
    if (lineType == kNoName || lineType == m_continuous)
        return nullptr;
    const LineType* const found = m_drawing.FindLineType(lineType);
    return found != nullptr && !found->dashes.empty() ? found : nullptr;
}

NameId StyleResolver::UnlessInTable(NameId lineType) const
{
    const bool isOther = lineType == m_byLayer || lineType == m_byBlock;
    return isOther || m_drawing.FindLineType(lineType) != nullptr ? kNoName : lineType;
}

std::int32_t StyleResolver::WeightOf(std::int32_t weight, const Layer* layer, std::int32_t byBlock) const
{
    if (weight == kWeightByBlock)
        return byBlock;
    if (weight == kWeightByLayer)
        weight = layer != nullptr ? layer->weight : kDefaultWeight;
    return weight >= 0 && weight <= kHeaviest ? weight : m_defaultWeight;
}

} // namespace prepare
