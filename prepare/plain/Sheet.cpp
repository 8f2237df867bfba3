#include "prepare/plain/Sheet.h"

#include "base/Letters.h"
#include "prepare/drawing/EntityReader.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace prepare {

namespace {

// Far more than any plotter takes, in millimetres, and far less than can be seen.
constexpr double kLongestPaper = 1e6, kShortestPaper = 1;

bool IsSide(double side)
{
    return side >= kShortestPaper && side <= kLongestPaper;
}

double UsableSheetScale(double scale)
{
    constexpr double kSmallest = 1e-9, kLargest = 1e9;
    return scale >= kSmallest && scale <= kLargest ? scale : 1;
}

// The margins at the left and at the lower side of what is plotted.
Point2 MarginsOf(const Layout& layout, int quarterTurns)
{
    switch (quarterTurns) {
    case 1:
        return {layout.topMargin, layout.leftMargin};
    case 2:
        return {layout.rightMargin, layout.topMargin};
    case 3:
        return {layout.bottomMargin, layout.rightMargin};
    default:
        return {layout.leftMargin, layout.bottomMargin};
    }
}

// What is plotted of the paper space; empty for all of a sheet, whose corner is the origin.
Box PlottedArea(const Layout& layout)
{
    constexpr std::int32_t kExtents = 1, kLimits = 2, kWindow = 4;
    Point2 a, b;
    if (layout.plotArea == kExtents) {
        a = {layout.extentsMin.x, layout.extentsMin.y};
        b = {layout.extentsMax.x, layout.extentsMax.y};
    } else if (layout.plotArea == kLimits) {
        a = layout.limitsMin;
        b = layout.limitsMax;
    } else if (layout.plotArea == kWindow) {
        a = {layout.windowLeft, layout.windowBottom};
        b = {layout.windowRight, layout.windowTop};
    }
    Box area;
    if (a.x < b.x && a.y < b.y) {
        area.Add(a);
        area.Add(b);
    }
    return area;
}

} // namespace

Box Sheet::Paper() const
{
    Box paper;
    if (HasPaper()) {
        paper.Add({0, 0});
        paper.Add({width, height});
    }
    return paper;
}

Sheet SheetOf(const Layout& layout)
{
    constexpr double kInch = 25.4;
    constexpr std::int32_t kCentred = 4;
    Sheet sheet;
    if (!IsSide(layout.paperWidth) || !IsSide(layout.paperHeight))
        return sheet;
    const int quarterTurns = ((layout.quarterTurns % 4) + 4) % 4;
    sheet.width = layout.paperWidth;
    sheet.height = layout.paperHeight;
    if (quarterTurns % 2 != 0)
        std::swap(sheet.width, sheet.height);
    sheet.scale =
        (layout.paperUnits == 0 ? kInch : 1) * UsableSheetScale(layout.scaledLength / layout.unscaledLength);
    const Box area = PlottedArea(layout);
    Point2 corner; // of the paper, in the paper space
    if (!area.IsEmpty() && (layout.plotFlags & kCentred) != 0)
        corner = 0.5 * (area.min + area.max) - 0.5 / sheet.scale * Point2{sheet.width, sheet.height};
    else
        corner = (area.IsEmpty() ? Point2{} : area.min) -
                 1 / sheet.scale * (MarginsOf(layout, quarterTurns) + Point2{layout.offsetX, layout.offsetY});
    sheet.matrix = Scaled({sheet.scale, sheet.scale, sheet.scale}) * Moved({-corner.x, -corner.y, 0});
    return sheet;
}

// The owner determines the layout, or the entity names it; otherwise it is the active one.
bool LayoutMembers::Has(const Entity& entity) const
{
    if (entity.isInPaperSpace == 0)
        return false;
    const auto record = m_drawing.blockOfRecord.find(entity.owner);
    if (record != m_drawing.blockOfRecord.end() && IsPaperSpaceName(m_drawing.names.Text(record->second)))
        return entity.owner == m_layout.record;
    if (entity.layout != kNoName)
        return AreSameLetters(m_drawing.names.Text(entity.layout), m_layout.name);
    return m_layout.isActive;
}

const Layout* FindLayout(const Drawing& drawing, std::string_view name)
{
    const auto found = std::find_if(drawing.layouts.begin(), drawing.layouts.end(),
                                    [&](const Layout& layout) { return AreSameLetters(layout.name, name); });
    return found == drawing.layouts.end() ? nullptr : &*found;
}

} // namespace prepare
