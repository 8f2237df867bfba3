#include "prepare/plain/SheetConverter.h"

#include <algorithm>
#include <cmath>

namespace prepare {

namespace {

// What a map of planes takes to a box, as far as a box around it.
Box BeforeMap(const Matrix& map, const Box& box)
{
    const double area = map.x.x * map.y.y - map.x.y * map.y.x;
    Box before;
    for (const Point2 corner : {box.min, {box.max.x, box.min.y}, box.max, {box.min.x, box.max.y}}) {
        const Point2 p = corner - Point2{map.origin.x, map.origin.y};
        before.Add({(p.x * map.y.y - p.y * map.y.x) / area, (map.x.x * p.y - map.x.y * p.x) / area});
    }
    return before;
}

// Whether dashes are as long in a window as on the paper, whatever its scale.
bool HasDashesOfPaper(const Drawing& drawing)
{
    return drawing.header.Integer("$PSLTSCALE", 1) != 0;
}

} // namespace

SheetConverter::SheetConverter(const Drawing& drawing, const Options& options, const Layout& layout,
                               const Sheet& sheet, const std::vector<Window>& windows,
                               const SheetSettings& settings, Converter& converter, PlainOutput& output,
                               Report& report)
    : m_drawing(drawing), m_members(drawing, layout), m_windows(windows), m_settings(settings),
      m_converter(converter), m_output(output), m_report(report), m_paper(drawing, options),
      m_placing(drawing, options, settings.placing, m_places, m_unsaid)
{
    m_paper.matrix = sheet.matrix;
    m_paper.lineTypeScale = sheet.scale;
    m_paper.pointSize = PointSizeAt(sheet.scale);
    for (const Window& window : windows)
        AddPane(options, window);
}

void SheetConverter::AddPane(const Options& options, const Window& window)
{
    Pane& pane = m_panes.emplace_back(m_drawing, options, window);
    pane.view.matrix = window.matrix;
    pane.view.lineTypeScale = HasDashesOfPaper(m_drawing) ? m_paper.lineTypeScale : window.scale;
    pane.view.pointSize = PointSizeAt(window.scale);
    pane.view.number = NumberOf(window);
    pane.block = m_output.NewBlock("Viewport");
    m_output.Model().Insert(pane.block, {}, 0, false);
    if (!m_settings.extents.IsEmpty())
        pane.cut.emplace(pane.region, m_converter.Room(), m_output.Block(pane.block));
    if (window.isFromAbove)
        pane.seen = BeforeMap(window.matrix, pane.region.Bounds());
}

// Blocks are as windows of the same layers and line types show them; 0 is the paper's own number.
std::size_t SheetConverter::NumberOf(const Window& window) const
{
    const auto same = std::find_if(m_windows.begin(), m_windows.end(), [&](const Window& other) {
        return other.frozen == window.frozen && (HasDashesOfPaper(m_drawing) || other.scale == window.scale);
    });
    return static_cast<std::size_t>(same - m_windows.begin()) + 1;
}

// $PDSIZE is a length of the space that the point is in.
double SheetConverter::PointSizeAt(double scale) const
{
    if (m_settings.extents.IsEmpty())
        return 0;
    const double size = PointSizeOf(m_drawing, m_settings.extents);
    return m_drawing.header.Real("$PDSIZE", 0) > 0 ? scale * size : size;
}

std::vector<std::size_t> SheetConverter::Blocks() const
{
    std::vector<std::size_t> blocks;
    blocks.reserve(m_panes.size());
    for (const Pane& pane : m_panes)
        blocks.push_back(pane.block);
    return blocks;
}

void SheetConverter::Take(const Entity& entity)
{
    if (entity.isInPaperSpace == 0)
        return TakeOfModel(entity);
    if (!m_members.Has(entity))
        return;
    if (!m_drawing.placeInOrder.empty())
        m_output.UsePlace(m_drawing.PlaceOf(entity.handle));
    m_converter.Show(entity, m_paper, m_output.Model());
}

// Of rays, and of what cannot be measured, the box is empty.
Box SheetConverter::BoxOf(const Entity& entity)
{
    m_places.ForgetModel();
    m_placing.Take(entity);
    return m_places.OfModel().hull.Bounds();
}

void SheetConverter::TakeOfModel(const Entity& entity)
{
    const Box box = m_panes.size() > 1 ? BoxOf(entity) : Box{};
    for (Pane& pane : m_panes)
        if (box.IsEmpty() || pane.seen.IsEmpty() || !box.IsApartFrom(pane.seen))
            ShowIn(pane, entity);
}

void SheetConverter::ShowIn(Pane& pane, const Entity& entity)
{
    if (pane.isFull)
        return;
    pane.isFull = !m_converter.HasRoom();
    if (pane.isFull)
        return m_report.Add(Finding::Cut, "layout", "its viewports show too much", pane.line);
    if (!m_drawing.placeInOrder.empty())
        m_output.UsePlaceInBlock(pane.block, m_drawing.PlaceOf(entity.handle));
    if (pane.cut)
        m_converter.Show(entity, pane.view, *pane.cut, &*pane.cut);
    else
        m_converter.Show(entity, pane.view, m_output.Block(pane.block));
}

} // namespace prepare
