// What annotates a drawing but is no text of its own: each becomes texts and lines.
#include "prepare/plain/DrawEntity.h"
#include "prepare/plain/DrawMText.h"
#include "prepare/plain/MTextLines.h"
#include "prepare/plain/PackedColour.h"
#include "prepare/plain/TextPieces.h"
#include "prepare/plain/TextStyles.h"

#include "base/Numbers.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

namespace prepare {

namespace {

constexpr std::int32_t kMiddleCentre = 5;

// Where a note is in the world: its point, and the directions of its lines and up from them.
struct NotePlane {
    Point3 origin;
    Point3 along{1, 0, 0};
    Point3 up{0, 1, 0};
    Point3 normal{0, 0, 1};

    Point3 At(double u, double v) const { return origin + u * along + v * up; }
};

// direction need not be a unit; without a length it is the world's x axis.
NotePlane PlaneOf(Point3 point, Point3 direction, Point3 extrusion)
{
    NotePlane plane;
    plane.origin = point;
    plane.normal = FromObject(extrusion).z;
    const double length = Length(direction);
    if (length > 0 && std::isfinite(length))
        plane.along = (1 / length) * direction;
    plane.up = Cross(plane.normal, plane.along);
    return plane;
}

// An MTEXT in that plane whose letters have that height.
MText TextIn(const NotePlane& plane, double u, double v, double height, std::string_view letters,
             std::uint64_t line)
{
    MText text;
    text.line = line;
    text.point = plane.At(u, v);
    text.direction = plane.along;
    text.hasDirection = true;
    text.extrusion = plane.normal;
    text.height = height;
    text.text = letters;
    text.attachment = kMiddleCentre;
    return text;
}

Placement InStyle(const Placement& placement, const Style& style)
{
    return {placement.drawing, placement.matrix, style,           placement.scale,
            placement.sink,    placement.report, placement.budget};
}

class NoteFrame {
public:
    NoteFrame(const Placement& placement, const NotePlane& plane, const Style& style)
        : m_placement(placement), m_plane(plane), m_style(style)
    {
        m_style.lineType = nullptr;
    }

    void Line(double u, double v, double endU, double endV) const
    {
        const Point2 from = m_placement.matrix.Flat(m_plane.At(u, v));
        const Point2 to = m_placement.matrix.Flat(m_plane.At(endU, endV));
        if (std::isfinite(from.x) && std::isfinite(from.y) && std::isfinite(to.x) && std::isfinite(to.y)) {
            m_placement.budget.Take(2);
            m_placement.sink.Line(m_style, from, to);
        }
    }

private:
    const Placement& m_placement;
    const NotePlane& m_plane;
    Style m_style;
};

// Of the longest line, in letters of the usual width.
double WidthOfLine(const Drawing& drawing, std::string_view text, double height)
{
    RunLook look;
    look.height = height;
    const MTextContent content = ReadMText(text, look, drawing.header.Text("$DWGCODEPAGE"));
    double width = 0;
    for (const TextLine& line : BreakIntoLines(content, 0))
        width = std::max(width, line.width);
    return width;
}

// A variable of dimensions: the style's, else the drawing's.
double DimensionValue(const Drawing& drawing, NameId style, std::int32_t code, std::string_view variable,
                      double otherwise)
{
    const auto found = drawing.dimStyles.find(style);
    if (found != drawing.dimStyles.end())
        for (const auto& [itsCode, value] : found->second.values)
            if (itsCode == code)
                return ParseReal(value);
    return drawing.header.Real(variable, otherwise);
}

StyleOfPart ColourOf(double index)
{
    StyleOfPart part;
    part.colour = index > 0 && index <= kByLayer ? static_cast<std::int32_t>(index) : kByBlock;
    return part;
}

// The text before the first separator, which is taken off with it.
std::string_view TakePart(std::string_view& text, std::span<const std::string_view> separators)
{
    for (std::size_t end = 0; end < text.size(); ++end)
        for (const std::string_view separator : separators)
            if (text.substr(end).starts_with(separator)) {
                const std::string_view part = text.substr(0, end);
                text.remove_prefix(end + separator.size());
                return part;
            }
    return std::exchange(text, {});
}

// A frame has a row for each line and a cell for each %%v; empty ones at the end are not drawn. The point is
// half way up the first row's left side.
void DrawTolerance(const Tolerance& entity, const Placement& placement, const PartStyler& styleOf)
{
    constexpr double kUsualHeight = 2.5;
    constexpr double kRowHeight = 2;  // in heights of its letters
    constexpr double kCellMargin = 1; // of both sides together
    constexpr std::int32_t kTextHeight = 140, kScale = 40, kTextColour = 178, kLineColour = 176;
    const Drawing& drawing = placement.drawing;
    const auto value = [&](std::int32_t code, std::string_view variable, double otherwise) {
        return DimensionValue(drawing, entity.style, code, variable, otherwise);
    };
    const double scale = value(kScale, "$DIMSCALE", 1);
    const double height = value(kTextHeight, "$DIMTXT", kUsualHeight) * (scale > 0 ? scale : 1);
    const Placement ofTexts = InStyle(placement, styleOf(ColourOf(value(kTextColour, "$DIMCLRT", 0))));
    const NotePlane plane = PlaneOf(entity.point, entity.direction, entity.extrusion);
    const NoteFrame frame(placement, plane, styleOf(ColourOf(value(kLineColour, "$DIMCLRD", 0))));

    static constexpr std::string_view kEndsOfRows[] = {"^J", "\n", "\\P"};
    static constexpr std::string_view kEndsOfCells[] = {"%%v", "%%V"};
    std::string_view rows = entity.text;
    double middle = 0;
    while (!rows.empty()) {
        const double top = middle + kRowHeight * height / 2, bottom = top - kRowHeight * height;
        double left = 0;
        std::string_view cells = TakePart(rows, kEndsOfRows);
        while (!cells.empty()) {
            const std::string_view cell = TakePart(cells, kEndsOfCells);
            const double width = WidthOfLine(drawing, cell, height);
            if (!(width > 0))
                continue;
            const double right = left + width + kCellMargin * height;
            DrawMText(TextIn(plane, (left + right) / 2, middle, height, cell, entity.line), ofTexts, styleOf,
                      "TOLERANCE");
            if (left == 0)
                frame.Line(0, top, 0, bottom);
            frame.Line(left, top, right, top);
            frame.Line(left, bottom, right, bottom);
            frame.Line(right, top, right, bottom);
            left = right;
        }
        middle -= kRowHeight * height;
    }
}

void FillBehind(const MultiLeader& entity, MText& text)
{
    constexpr std::int32_t kFilled = 1, kAsWindow = 2, kFramed = 16;
    text.fill = entity.hasFrame != 0 ? kFramed : 0;
    if (entity.hasFill != 0)
        text.fill |= entity.fillsAsWindow != 0 ? kAsWindow : kFilled;
    const StyleOfPart colour = UnpackColour(entity.fillColour);
    text.fillColour = colour.colour;
    text.hasFillColour = true;
    text.fillTrueColour = colour.trueColour;
    text.fillScale = entity.fillScale;
    text.frameGap = entity.landingGap;
}

void DrawLeaderText(const MultiLeader& entity, const Placement& placement, const PartStyler& styleOf)
{
    constexpr std::int32_t kTextContent = 2, kRight = 3;
    if (entity.contentType != kTextContent)
        return;
    MText text;
    text.line = entity.line;
    text.point = entity.textPoint;
    text.extrusion = entity.extrusion;
    text.height = entity.textHeight;
    text.width = entity.textWidth;
    text.text = entity.text;
    text.direction = entity.textDirection;
    text.hasDirection = true;
    text.attachment = std::clamp(entity.textAttachment, 1, kRight);
    FillBehind(entity, text);
    const auto style = placement.drawing.textStyleOfHandle.find(entity.textStyleHandle);
    text.style = style != placement.drawing.textStyleOfHandle.end() ? style->second : entity.textStyle;
    DrawMText(text, InStyle(placement, styleOf(UnpackColour(entity.textColour))), styleOf, "MULTILEADER");
}

// The sums of sizes, from 0 on; an invalid size counts as 0.
std::vector<double> Borders(const std::vector<double>& sizes, std::int32_t count)
{
    std::vector<double> borders{0};
    for (std::size_t i = 0; i < sizes.size() && static_cast<std::int64_t>(i) < count; ++i)
        borders.push_back(borders.back() + (sizes[i] > 0 && std::isfinite(sizes[i]) ? sizes[i] : 0));
    return borders;
}

// A table without its picture: which style it has is not known. Its point is the upper left corner.
class TableDrawing {
public:
    TableDrawing(const Table& table, const Placement& placement, const PartStyler& styleOf)
        : m_table(table), m_placement(placement), m_styleOf(styleOf),
          m_plane(PlaneOf(table.point, table.direction, table.extrusion)),
          m_frame(placement, m_plane, placement.style), m_across(Borders(table.columnWidths, table.columns)),
          m_down(Borders(table.rowHeights, table.rows))
    {
    }

    void Draw()
    {
        if (!(m_across.back() > 0 && m_down.back() > 0) || m_table.cells.empty())
            return Report(Finding::NotShown, "it has no picture block and no cells");
        m_frame.Line(0, 0, m_across.back(), 0);
        // A file can have sizes of more rows and columns than cells; their product would be without bounds.
        const std::size_t columns = m_across.size() - 1;
        for (std::size_t row = 0; row + 1 < m_down.size() && row * columns < m_table.cells.size(); ++row)
            DrawRow(row);
        Report(Finding::Changed, "it has no picture block: drawn without its style");
    }

private:
    std::string_view TextOf(std::size_t row, std::size_t column) const
    {
        const std::size_t cell = row * (m_across.size() - 1) + column;
        return cell < m_table.cells.size() ? std::string_view(m_table.cells[cell]) : std::string_view();
    }

    // A row with nothing but its first cell is a title over all columns.
    void DrawRow(std::size_t row)
    {
        std::size_t last = m_across.size() - 1;
        while (last > 1 && TextOf(row, last - 1).empty())
            --last;
        const std::size_t columns = last == 1 ? 1 : m_across.size() - 1;
        const double top = -m_down[row], bottom = -m_down[row + 1];
        m_frame.Line(0, bottom, m_across.back(), bottom);
        m_frame.Line(0, top, 0, bottom);
        for (std::size_t column = 0; column < columns; ++column) {
            const double right = columns == 1 ? m_across.back() : m_across[column + 1];
            m_frame.Line(right, top, right, bottom);
            DrawCell(TextOf(row, column), m_across[column], right, top, bottom);
        }
    }

    // Letters take half of a row that has one line.
    void DrawCell(std::string_view letters, double left, double right, double top, double bottom)
    {
        constexpr double kLine = 5.0 / 3;
        double lines = 0;
        for (std::size_t end = letters.find("\\P"); end != std::string_view::npos;
             end = letters.find("\\P", end + 1))
            ++lines;
        const double height = (top - bottom) / (2 + kLine * lines);
        if (!(height > 0))
            return;
        MText text = TextIn(m_plane, (left + right) / 2, (top + bottom) / 2, height, letters, m_table.line);
        text.width = right - left;
        DrawMText(text, m_placement, m_styleOf, "ACAD_TABLE");
    }

    void Report(Finding finding, std::string_view detail)
    {
        m_placement.report.Add(finding, "ACAD_TABLE", detail, m_table.line);
    }

    const Table& m_table;
    const Placement& m_placement;
    const PartStyler& m_styleOf;
    const NotePlane m_plane;
    const NoteFrame m_frame;
    const std::vector<double> m_across;
    const std::vector<double> m_down;
};

} // namespace

bool DrawNotes(const Entity& entity, const Placement& placement, const PartStyler& styleOf)
{
    switch (entity.type) {
    case EntityType::Tolerance:
        DrawTolerance(static_cast<const Tolerance&>(entity), placement, styleOf);
        return true;
    case EntityType::MultiLeader:
        DrawLeaderText(static_cast<const MultiLeader&>(entity), placement, styleOf);
        return true;
    case EntityType::Table:
        TableDrawing(static_cast<const Table&>(entity), placement, styleOf).Draw();
        return true;
    default:
        return false;
    }
}

} // namespace prepare
