#include "prepare/plain/Viewports.h"

#include "prepare/plain/Converter.h"
#include "prepare/plain/Curves.h"
#include "prepare/plain/ViewportOutline.h"

#include <algorithm>
#include <cmath>

namespace prepare {

namespace {

constexpr std::int32_t kPerspective = 1, kOff = 0x20000; // flags

bool IsOff(const Viewport& viewport)
{
    return viewport.hasFlags ? (viewport.flags & kOff) != 0 : viewport.status == 0;
}

bool IsLength(double length)
{
    return length > 0 && std::isfinite(length);
}

// The inverse of a rotation.
Matrix TurnedBack(const Matrix& turn)
{
    return {
        {turn.x.x, turn.y.x, turn.z.x}, {turn.x.y, turn.y.y, turn.z.y}, {turn.x.z, turn.y.z, turn.z.z}, {}};
}

// From the world to the paper space: as it is seen from the eye, turned, and scaled.
Matrix MatrixOf(const Viewport& viewport)
{
    const double scale = viewport.height / viewport.viewHeight;
    const Matrix seen = Turned(Radians(viewport.twist)) * TurnedBack(FromObject(viewport.direction)) *
                        Moved(-1 * viewport.target);
    return Moved({viewport.centre.x, viewport.centre.y, 0}) * Scaled({scale, scale, scale}) *
           Moved({-viewport.viewCentre.x, -viewport.viewCentre.y, 0}) * seen;
}

std::vector<Point2> RectangleOf(const Viewport& viewport, const Matrix& matrix)
{
    const double x = viewport.width / 2, y = viewport.height / 2;
    std::vector<Point2> corners;
    for (const Point2 corner : {Point2{-x, -y}, Point2{x, -y}, Point2{x, y}, Point2{-x, y}})
        corners.push_back(matrix.Flat({viewport.centre.x + corner.x, viewport.centre.y + corner.y, 0}));
    return corners;
}

bool AreDrawable(const std::vector<Point2>& points)
{
    return std::all_of(points.begin(), points.end(), [](Point2 point) { return IsDrawable(point); });
}

} // namespace

WindowReader::WindowReader(const Drawing& drawing, const Layout& layout, const Sheet& sheet, Report& report)
    : m_sheet(sheet), m_members(drawing, layout), m_report(report)
{
    for (const auto& [name, layer] : drawing.layers)
        m_layers.try_emplace(layer.handle, name);
}

void WindowReader::Take(const Entity& entity)
{
    if (entity.type != EntityType::Viewport || !m_members.Has(entity))
        return;
    const auto& viewport = static_cast<const Viewport&>(entity);
    const bool hasFault = viewport.fault != Fault::None;
    if (IsSheetItself(viewport) || viewport.isInvisible == 1)
        return;
    if (IsOff(viewport)) {
        ++m_report.viewportsOff;
        return;
    }
    ++m_report.entities;
    m_report.BeginEntity();
    if (hasFault)
        return m_report.Add(Finding::NotShown, "VIEWPORT", TextOf(viewport.fault), viewport.line);
    if (!IsLength(viewport.width) || !IsLength(viewport.height) || !IsLength(viewport.viewHeight))
        return m_report.Add(Finding::NotShown, "VIEWPORT", kHasNoSize, viewport.line);
    if (m_windows.size() >= kMostWindows)
        return m_report.Add(Finding::Cut, "layout", "more than 256 viewports", viewport.line);
    Add(viewport);
}

// The viewport that is the sheet itself and shows nothing of the model. It has the number 1, or it is the
// first one and has no number or shows the paper space at its own size, as far as its values are sound.
bool WindowReader::IsSheetItself(const Viewport& viewport)
{
    const bool isFirst = !std::exchange(m_hasMetAny, true);
    const bool isAsItIs = viewport.fault == Fault::None && viewport.viewHeight == viewport.height &&
                          viewport.viewCentre == Point2{viewport.centre.x, viewport.centre.y};
    return viewport.id == 1 || (isFirst && (viewport.id == 0 || isAsItIs));
}

void WindowReader::Add(const Viewport& viewport)
{
    Window window;
    window.matrix = m_sheet.matrix * MatrixOf(viewport);
    window.scale = m_sheet.scale * viewport.height / viewport.viewHeight;
    const Point3 direction = viewport.direction;
    window.isFromAbove = direction.x == 0 && direction.y == 0 && direction.z >= 0;
    window.outline = RectangleOf(viewport, m_sheet.matrix);
    window.frozen = FrozenBy(viewport);
    window.clip = viewport.clip;
    window.line = viewport.line;
    if (!AreDrawable(window.outline) || !IsDrawable(window.matrix.origin) || !IsLength(window.scale))
        return m_report.Add(Finding::NotShown, "VIEWPORT", "its place is no number", viewport.line);
    if ((viewport.flags & kPerspective) != 0)
        m_report.Add(Finding::Changed, "VIEWPORT", "its perspective is drawn as a parallel view",
                     viewport.line);
    m_windows.push_back(std::move(window));
}

std::set<NameId> WindowReader::FrozenBy(const Viewport& viewport) const
{
    std::set<NameId> frozen(viewport.frozenByName.begin(), viewport.frozenByName.end());
    for (const Handle handle : viewport.frozen)
        if (const auto layer = m_layers.find(handle); layer != m_layers.end())
            frozen.insert(layer->second);
    return frozen;
}

OutlineReader::OutlineReader(const Drawing& drawing, const Sheet& sheet, const ConvertSettings& limits,
                             std::vector<Window>& windows)
    : m_drawing(drawing), m_sheet(sheet), m_limits(limits)
{
    for (Window& window : windows)
        if (window.clip != 0)
            m_wanted.emplace(window.clip, &window);
}

// The first entity with a handle counts, whatever its layer. An outline that a region cannot have is replaced
// by its box here, once for all windows.
void OutlineReader::Take(const Entity& entity)
{
    const auto wanted = m_wanted.find(entity.handle);
    // Blocks are no outlines: they may unfold to anything.
    if (wanted == m_wanted.end() || entity.isInPaperSpace == 0 || !HasTrait(entity.type, Trait::Round))
        return;
    std::vector<Point2> outline = OutlineOf(entity, BoxOf(wanted->second->outline).LongerSide());
    if (outline.size() < 3 || !AreDrawable(outline))
        return;
    const ClipRegion region(outline);
    if (region.IsReplaced())
        outline.assign(region.Corners().begin(), region.Corners().end());
    const auto [first, last] = m_wanted.equal_range(entity.handle);
    for (auto window = first; window != last; ++window) {
        window->second->outline = outline;
        if (region.IsReplaced())
            m_replaced.push_back(window->second->line);
    }
    m_wanted.erase(first, last);
}

// side: of the window.
std::vector<Point2> OutlineReader::OutlineOf(const Entity& entity, double side)
{
    constexpr double kFineness = 1.0 / 1000;
    Options options;
    options.showsAllLayers = true;
    m_limits.tolerance = kFineness * side;
    ViewportOutline output(m_limits.tolerance, m_limits.sparePointsOfCurves);
    Report unsaid;
    Converter converter(m_drawing, options, m_limits, output, unsaid);
    View view(m_drawing, options);
    view.matrix = m_sheet.matrix;
    converter.Show(entity, view, output.Model());
    m_limits.mostPoints = converter.Room().Rest();
    m_limits.sparePointsOfCurves -=
        std::min<std::uint64_t>(m_limits.sparePointsOfCurves, output.Outline().size());
    return output.Outline();
}

void OutlineReader::Finish(Report& report) const
{
    for (const std::uint64_t line : m_replaced)
        report.Add(Finding::Changed, "VIEWPORT", kCutAlongBox, line);
    for (const auto& [handle, window] : m_wanted)
        report.Add(Finding::Changed, "VIEWPORT", "its outline is missing: its rectangle is in its place",
                   window->line);
}

} // namespace prepare
