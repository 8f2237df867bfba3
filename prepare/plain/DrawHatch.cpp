#include "prepare/plain/DrawHatch.h"

#include "prepare/plain/HatchBoundary.h"
#include "prepare/plain/HatchPattern.h"
#include "prepare/plain/LightColour.h"

#include <algorithm>
#include <functional>
#include <string_view>

namespace prepare {

namespace {

bool IsFilled(const Hatch& hatch)
{
    return hatch.isSolid != 0 || hatch.isGradient != 0 || (hatch.pattern == "SOLID" && !hatch.hasOutline);
}

Style FillStyle(const Pen& pen)
{
    Style style = pen.Place().style;
    style.lineType = nullptr;
    style.lineTypeScale = 1;
    style.width = 0;
    return style;
}

void DrawFilled(const Hatch& hatch, const std::vector<Ring>& rings, Pen& pen)
{
    Style style = FillStyle(pen);
    if (hatch.isGradient != 0) {
        const std::vector<std::int32_t>& colours = hatch.gradientColours;
        if (!colours.empty())
            style.colour = {true, static_cast<std::uint32_t>(colours.front()) & 0xFFFFFF, 7};
        // An MPOLYGON has a true colour as a gradient from that colour to itself.
        if (!hatch.hasOutline ||
            std::adjacent_find(colours.begin(), colours.end(), std::not_equal_to<>()) != colours.end())
            pen.Report(Finding::Changed, "its gradient is one colour");
    }
    pen.UseStyle(style);
    if (hatch.hasOutline && hatch.isGradient == 0)
        pen.UseStyleOf({hatch.fillColour, kNoTrueColour, kNoName, kNoName});
    pen.Fill(rings);
}

void DrawLightly(const std::vector<Ring>& rings, Pen& pen)
{
    Style style = FillStyle(pen);
    style.colour = LightColour(style.colour);
    pen.UseStyle(style);
    pen.Fill(rings);
    pen.Report(Finding::Changed, "its pattern is too dense to be seen: a light fill");
}

void DrawOutlines(const std::vector<Ring>& rings, Pen& pen)
{
    pen.UseOwnStyle();
    for (const Ring& ring : rings)
        pen.Polyline(ring, true);
}

void DrawInside(const Hatch& hatch, const std::vector<Ring>& rings, Pen& pen)
{
    if (IsFilled(hatch))
        DrawFilled(hatch, rings, pen);
    else if (!hatch.lines.empty() && !DrawPattern(hatch, rings, pen))
        DrawLightly(rings, pen);
}

} // namespace

void DrawHatch(const Hatch& hatch, Pen& pen)
{
    const std::vector<Ring> rings = RingsOf(hatch, pen);
    if (rings.empty())
        return pen.Report(Finding::NotShown, "its boundary has no area");
    DrawInside(hatch, rings, pen);
    const bool isBare = !IsFilled(hatch) && hatch.lines.empty();
    if (isBare || hatch.hasOutline)
        DrawOutlines(rings, pen);
    if (isBare && !hatch.hasOutline)
        pen.Report(Finding::Changed, "its pattern has no lines: its outline");
}

} // namespace prepare
