#include "support/Stage.h"

#include <gtest/gtest.h>

namespace prepare {

namespace {

Style StyleOf(const StyleOfPart& part)
{
    Style style;
    style.colour.index = part.colour == kByLayer || part.colour == kByBlock ? 7 : part.colour;
    style.colour.isTrue = part.trueColour != kNoTrueColour;
    style.colour.rgb = style.colour.isTrue ? static_cast<std::uint32_t>(part.trueColour) : 0;
    style.layer = part.layer;
    return style;
}

const char* Word(Finding finding)
{
    constexpr const char* kWords[] = {"rewritten", "not shown", "changed", "repaired", "cut"};
    return kWords[static_cast<std::size_t>(finding)];
}

} // namespace

Lines Stage::Draw(const Entity& entity)
{
    Budget budget(tolerance, UINT64_MAX, mostPoints);
    const DrawingScale scale(tolerance, reach, pointSize);
    const Placement placement{drawing, matrix, style, scale, sink, report, budget};
    sink.lines.clear();
    report.BeginEntity();
    EXPECT_TRUE(DrawGeometry(entity, placement, StyleOf));
    return sink.lines;
}

Lines Stage::Findings() const
{
    Lines lines;
    for (const auto& [key, count] : report.Entries())
        lines.push_back(std::string(Word(key.finding)) + ": " + key.detail);
    return lines;
}

} // namespace prepare
