// Colour, line type, weight and layer of entities, with what they inherit.
#pragma once

#include "prepare/plain/PartStyle.h"
#include "prepare/plain/Plain.h"

#include <vector>

namespace prepare {

// Resolves styles by a drawing's tables, which must be complete and outlive it.
class StyleResolver {
public:
    explicit StyleResolver(const Drawing& drawing);

    // What "by block" means outside of all inserts.
    Style OfNoInsert() const;

    // The style of an entity; insert is that of the insert around it. An entity of layer 0 in a block is on
    // the insert's layer.
    Style Of(const Entity& entity, const Style& insert, bool isInBlock) const;

    // The style of a part of an entity. By layer is by its own layer if it has one, by block is as the entity
    // itself.
    Style OfPart(const StyleOfPart& part, const Style& entity) const;

    // The line type that an entity on that layer names, or that its layer does, if no table has it; kNoName
    // if none is missing.
    NameId MissingLineType(const Entity& entity, NameId layer) const
    {
        NameId name = entity.lineType;
        if (name == kNoName || name == m_byLayer) {
            const Layer* const its = LayerOf(layer);
            name = its != nullptr ? its->lineType : kNoName;
        }
        return name == kNoName || name == m_continuous ? kNoName : UnlessInTable(name);
    }

    // Whether the entity's style, or that of what is in it, depends on the insert around it.
    bool InheritsFromInsert(const Entity& entity) const;

private:
    // Each with the layer that counts, or null where there is none.
    static Colour ColourOf(std::int32_t colour, std::int32_t trueColour, const Layer* layer,
                           const Colour& byBlock);
    const LineType* LineTypeOf(NameId lineType, const Layer* layer, const LineType* byBlock) const;
    std::int32_t WeightOf(std::int32_t weight, const Layer* layer, std::int32_t byBlock) const;
    NameId UnlessInTable(NameId lineType) const;
    // Layers stay where they are once they are there.
    const Layer* LayerOf(NameId name) const
    {
        if (name < m_layers.size() && m_layers[name] != nullptr) [[likely]]
            return m_layers[name];
        return LookLayer(name);
    }
    const Layer* LookLayer(NameId name) const;
    bool IsLayerZero(NameId layer) const { return layer == kNoName || layer == m_layerZero; }

    const Drawing& m_drawing;
    NameId m_layerZero;
    NameId m_byLayer;
    NameId m_byBlock;
    NameId m_continuous;
    std::int32_t m_defaultWeight;
    double m_lineTypeScale;
    mutable std::vector<const Layer*> m_layers; // by the numbers of their names, those that were asked for
};

} // namespace prepare
