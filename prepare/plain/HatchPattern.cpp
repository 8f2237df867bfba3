#include "prepare/plain/HatchPattern.h"

#include "prepare/plain/HatchDashes.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace prepare {

namespace {

// The width of the thinnest stroke, in tolerances.
constexpr double kStrokeInTolerances = 20;
// Lines closer than that, in strokes, run into one another. So do dashes with a shorter period.
constexpr double kClosest = 0.25;
// How often the edges of the rings may be looked at: what the most elaborate pattern takes on a small hatch,
// and on any hatch.
constexpr double kLooksAnyhow = 1e6, kLooksOfEdge = 256;
// Beyond this, a number has no digits left to distinguish a line from the next one.
constexpr double kFarthest = 1e12;

// Lines at equal distances, in coordinates of their own: across is the line's number, and along runs on each
// line in the pattern's units.
class LineFamily {
public:
    LineFamily(const HatchLine& line, const Matrix& matrix);

    bool CanBeSeen(double closest) const { return Spacing() >= closest; }
    // How long a unit along the lines is in the output.
    double Unit() const { return Length(m_direction); }
    double Along(Point2 p) const { return Cross(p - m_base, m_offset) / m_area; }
    double Across(Point2 p) const { return Cross(m_direction, p - m_base) / m_area; }
    Point2 At(double across, double along) const { return m_base + across * m_offset + along * m_direction; }

private:
    double Spacing() const { return std::fabs(m_area) / Length(m_direction); }

    Point2 m_base;
    Point2 m_direction;
    Point2 m_offset;
    double m_area; // of the cell that direction and offset span
};

LineFamily::LineFamily(const HatchLine& line, const Matrix& matrix)
    : m_base(matrix.Flat({line.base.x, line.base.y, 0})),
      m_direction(matrix.FlatDirection({std::cos(Radians(line.angle)), std::sin(Radians(line.angle)), 0})),
      m_offset(matrix.FlatDirection({line.offset.x, line.offset.y, 0})), m_area(Cross(m_direction, m_offset))
{
}

// A point in the coordinates of a family.
struct FamilyPoint {
    double across = 0;
    double along = 0;
};

// Calls take(from, to) for each edge of the rings; false when a point is too far away.
template <class Take>
bool ForEachEdge(const LineFamily& family, const std::vector<Ring>& rings, const Take& take)
{
    for (const Ring& ring : rings) {
        FamilyPoint from{family.Across(ring.back()), family.Along(ring.back())};
        for (const Point2 point : ring) {
            const FamilyPoint to{family.Across(point), family.Along(point)};
            if (!(std::fabs(to.across) < kFarthest) || !std::isfinite(to.along))
                return false;
            take(from, to);
            from = to;
        }
    }
    return true;
}

// An edge meets the lines from its lower end on, up to but without its upper end. So each ring meets each
// line an even number of times.
double FirstLine(FamilyPoint a, FamilyPoint b)
{
    return std::ceil(std::min(a.across, b.across));
}

double LineAfter(FamilyPoint a, FamilyPoint b)
{
    return std::ceil(std::max(a.across, b.across));
}

// The number of pieces that rings cut a family's lines into.
double CountPieces(const LineFamily& family, const std::vector<Ring>& rings)
{
    double crossings = 0;
    const bool isNear = ForEachEdge(family, rings, [&](FamilyPoint from, FamilyPoint to) {
        crossings += LineAfter(from, to) - FirstLine(from, to);
    });
    return isNear ? crossings / 2 : HUGE_VAL;
}

// A part of a line within the rings.
struct LinePiece {
    double across;
    double from;
    double to;
};

std::vector<LinePiece> PiecesOf(const LineFamily& family, const std::vector<Ring>& rings)
{
    std::vector<std::pair<double, double>> crossings; // across, along
    ForEachEdge(family, rings, [&](FamilyPoint from, FamilyPoint to) {
        const double end = LineAfter(from, to);
        for (double line = FirstLine(from, to); line < end; ++line) { // NOLINT(cert-flp30-c): whole numbers
            const double share = (line - from.across) / (to.across - from.across);
            crossings.emplace_back(line, from.along + share * (to.along - from.along));
        }
    });
    std::sort(crossings.begin(), crossings.end());
    std::vector<LinePiece> pieces;
    for (std::size_t i = 0; i + 1 < crossings.size(); i += 2)
        if (crossings[i].second < crossings[i + 1].second)
            pieces.push_back({crossings[i].first, crossings[i].second, crossings[i + 1].second});
    return pieces;
}

// Draws the lines of a hatch.
class PatternDrawer {
public:
    PatternDrawer(const Hatch& hatch, const std::vector<Ring>& rings, Pen& pen);

    bool CanBeDrawn();
    void Draw();

private:
    void Draw(const LineFamily& family, const HatchDashes& dashes);
    void DrawDashed(const LineFamily& family, const HatchDashes& dashes, const LinePiece& piece);
    double DrawDashes(const LineFamily& family, const HatchDashes& dashes, const LinePiece& piece,
                      double start);
    void Line(const LineFamily& family, const Style& style, const LinePiece& piece);

    const Hatch& m_hatch;
    const std::vector<Ring>& m_rings;
    Pen& m_pen;
    const double m_stroke;
    std::vector<LineFamily> m_families;
    Style m_solid;
    Style m_dashed;
    LineType m_lineType;     // of the family that is being drawn
    std::size_t m_spare = 0; // how many lines may be drawn besides one for each piece
    bool m_isShifted = false;
};

PatternDrawer::PatternDrawer(const Hatch& hatch, const std::vector<Ring>& rings, Pen& pen)
    : m_hatch(hatch), m_rings(rings), m_pen(pen),
      m_stroke(kStrokeInTolerances * pen.Place().scale.Tolerance()), m_solid(pen.Place().style)
{
    Matrix matrix = pen.OfObject();
    matrix.origin = matrix.Apply({0, 0, hatch.elevation.z});
    for (const HatchLine& line : hatch.lines)
        m_families.emplace_back(line, matrix);
    m_solid.lineType = nullptr; // a hatch's line type is that of its pattern
    m_solid.lineTypeScale = 1;
    m_solid.width = 0;
    m_dashed = m_solid;
    m_dashed.lineType = &m_lineType;
}

bool PatternDrawer::CanBeDrawn()
{
    const double closest = kClosest * m_stroke;
    if (!std::all_of(m_families.begin(), m_families.end(),
                     [&](const LineFamily& family) { return family.CanBeSeen(closest); }))
        return false;
    double edges = 0;
    for (const Ring& ring : m_rings)
        edges += static_cast<double>(ring.size());
    if (edges * static_cast<double>(m_families.size()) > kLooksAnyhow + kLooksOfEdge * edges)
        return false;
    double pieces = 0;
    for (const LineFamily& family : m_families) {
        pieces += CountPieces(family, m_rings);
        if (!(pieces <= static_cast<double>(kMostHatchLines)))
            return false;
    }
    m_spare = kMostHatchLines - static_cast<std::size_t>(pieces);
    return true;
}

void PatternDrawer::Draw()
{
    for (std::size_t i = 0; i < m_families.size(); ++i) {
        const LineFamily& family = m_families[i];
        Draw(family, HatchDashes(m_hatch.lines[i].dashes, m_stroke / family.Unit()));
    }
    if (m_isShifted)
        m_pen.Report(Finding::Changed, "dashes of its pattern are shifted");
}

void PatternDrawer::Draw(const LineFamily& family, const HatchDashes& dashes)
{
    const bool isSolid = dashes.IsSolid() || !(dashes.period * family.Unit() >= kClosest * m_stroke);
    m_lineType.dashes.clear();
    for (const double length : dashes.lengths)
        m_lineType.dashes.push_back(length * family.Unit());
    for (const LinePiece& piece : PiecesOf(family, m_rings)) {
        if (isSolid)
            Line(family, m_solid, piece);
        else
            DrawDashed(family, dashes, piece);
    }
}

// A stroke with a line type begins with a whole dash. Where the piece begins in the midst of the pattern, its
// first dashes are lines of their own, so that the dashes of all lines stay in their places.
void PatternDrawer::DrawDashed(const LineFamily& family, const HatchDashes& dashes, const LinePiece& piece)
{
    const double periods = std::floor((piece.from - dashes.origin) / dashes.period);
    if (m_spare < dashes.lengths.size() || !(std::fabs(periods) < kFarthest)) {
        m_isShifted = true;
        Line(family, m_dashed, piece);
        return;
    }
    double start = dashes.origin + periods * dashes.period;
    if (start < piece.from)
        start = DrawDashes(family, dashes, piece, start);
    if (start + dashes.period < piece.to)
        Line(family, m_dashed, {piece.across, start, piece.to});
    else
        DrawDashes(family, dashes, piece, start);
}

// Draws the dashes of one period as far as they are within the piece; returns where the next period begins.
double PatternDrawer::DrawDashes(const LineFamily& family, const HatchDashes& dashes, const LinePiece& piece,
                                 double start)
{
    double at = start;
    for (const double length : dashes.lengths) {
        const double from = std::max(at, piece.from), to = std::min(at + length, piece.to);
        if (length > 0 && from < to) {
            Line(family, m_solid, {piece.across, from, to});
            --m_spare;
        }
        at += std::fabs(length);
    }
    return start + dashes.period;
}

void PatternDrawer::Line(const LineFamily& family, const Style& style, const LinePiece& piece)
{
    m_pen.UseStyle(style);
    m_pen.Line(family.At(piece.across, piece.from), family.At(piece.across, piece.to));
}

} // namespace

bool DrawPattern(const Hatch& hatch, const std::vector<Ring>& rings, Pen& pen)
{
    PatternDrawer drawer(hatch, rings, pen);
    if (!drawer.CanBeDrawn())
        return false;
    drawer.Draw();
    return true;
}

} // namespace prepare
