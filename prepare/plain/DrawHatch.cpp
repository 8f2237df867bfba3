#include "prepare/plain/DrawHatch.h"

#include "prepare/plain/HatchBoundary.h"
#include "prepare/plain/HatchPattern.h"
#include "prepare/plain/LightColour.h"

#include <string_view>

namespace prepare {

namespace {

bool IsFilled(const Hatch& hatch)
{
    return hatch.isSolid != 0 || hatch.isGradient != 0 || hatch.pattern == "SOLID";
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
        if (!hatch.gradientColours.empty())
            style.colour = {true, static_cast<std::uint32_t>(hatch.gradientColours.front()) & 0xFFFFFF, 7};
        pen.Report(Finding::Changed, "its gradient is one colour");
    }
    pen.UseStyle(style);
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
    for (const Ring& ring : rings)
        pen.Polyline(ring, true);
    pen.Report(Finding::Changed, "its pattern has no lines: its outline");
}

} // namespace

void DrawHatch(const Hatch& hatch, Pen& pen)
{
    const std::vector<Ring> rings = RingsOf(hatch, pen);
    if (rings.empty())
        pen.Report(Finding::NotShown, "its boundary has no area");
    else if (IsFilled(hatch))
        DrawFilled(hatch, rings, pen);
    else if (hatch.lines.empty())
        DrawOutlines(rings, pen);
    else if (!DrawPattern(hatch, rings, pen))
        DrawLightly(rings, pen);
}

} // namespace prepare
