// Blocks that are areas, for hosts that know their names.
#pragma once

#include "prepare/write/AgreedBlocks.h"
#include "prepare/write/ModuleEntities.h"

namespace prepare {

// Writes a block for each area of a log. ModuleEntities inserts them in the same order.
class ModuleFills final : public LogVisitor {
public:
    explicit ModuleFills(ModuleEntities& entities) : m_entities(entities) {}

    void Line(StyleId, Point2, Point2) override {}
    void Circle(StyleId, Point2, double) override {}
    void Arc(StyleId, Point2, double, double, double) override {}
    void Ellipse(StyleId, Point2, Point2, double, double, double) override {}
    void Polyline(StyleId, std::span<const PlainVertex>, bool) override {}
    void Fill(StyleId style, std::span<const std::vector<Point2>> rings) override
    {
        m_entities.WriteAreaBlock(style, rings, kFillPrefix);
    }
    void Mask(StyleId style, std::span<const std::vector<Point2>> rings) override
    {
        m_entities.WriteAreaBlock(style, rings, kMaskPrefix);
    }
    void Text(StyleId, const LoggedText&) override {}
    void Insert(std::size_t, Point2, double, bool) override {}

private:
    ModuleEntities& m_entities;
};

} // namespace prepare
