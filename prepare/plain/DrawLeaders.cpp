// LEADER, and the lines of MULTILEADER.
#include "base/Numbers.h"
#include "prepare/plain/Arrowheads.h"
#include "prepare/plain/Geometry.h"
#include "prepare/plain/PackedColour.h"

#include <string_view>
#include <vector>

namespace prepare {

namespace {

// What counts for leaders in a dimension style: its values by group code, with the leader's own before them.
class LeaderStyle {
public:
    LeaderStyle(const Leader& leader, const Drawing& drawing) : m_leader(leader), m_drawing(drawing)
    {
        const auto found = drawing.dimStyles.find(leader.dimStyle);
        m_style = found == drawing.dimStyles.end() ? nullptr : &found->second;
    }

    double ArrowSize() const
    {
        constexpr std::int32_t kSize = 41, kScale = 40;
        const double scale = Real(kScale, "$DIMSCALE", 1);
        return Real(kSize, "$DIMASZ", 0.18) * (scale > 0 ? scale : 1);
    }
    // kByBlock: as the leader itself.
    std::int32_t Colour() const
    {
        constexpr std::int32_t kColour = 176;
        const std::string_view value = Value(kColour);
        return value.empty() ? kByBlock : ParseInteger(value);
    }
    // The name of the arrowhead's block; empty for the usual one.
    std::string_view Arrow() const;

private:
    std::string_view Value(std::int32_t code) const;
    double Real(std::int32_t code, std::string_view variable, double otherwise) const
    {
        const std::string_view value = Value(code);
        return value.empty() ? m_drawing.header.Real(variable, otherwise) : ParseReal(value);
    }

    const Leader& m_leader;
    const Drawing& m_drawing;
    const DimStyle* m_style;
};

std::string_view LeaderStyle::Value(std::int32_t code) const
{
    for (const auto& [itsCode, value] : m_leader.overrides) {
        if (itsCode == code)
            return value;
    }
    if (m_style != nullptr) {
        for (const auto& [itsCode, value] : m_style->values) {
            if (itsCode == code)
                return value;
        }
    }
    return {};
}

std::string_view ArrowOfBlock(Handle record, const Drawing& drawing)
{
    const auto found = drawing.blockOfRecord.find(record);
    return found == drawing.blockOfRecord.end() ? std::string_view() : drawing.names.Text(found->second);
}

std::string_view LeaderStyle::Arrow() const
{
    constexpr std::int32_t kArrowBlock = 341;
    return ArrowOfBlock(ParseHex(Trim(Value(kArrowBlock))).value_or(0), m_drawing);
}

// How much longer lengths are in the output.
double ScaleOf(const Matrix& matrix)
{
    return std::sqrt(std::fabs(Cross(matrix.FlatDirection({1, 0, 0}), matrix.FlatDirection({0, 1, 0}))));
}

std::vector<Point3> FiniteOf(const std::vector<Point3>& points, Pen& pen)
{
    std::vector<Point3> finite;
    for (const Point3 point : points)
        IsFinite(point) ? finite.push_back(point) : pen.Lose();
    return finite;
}

void DrawLeaderLine(const std::vector<Point3>& points, bool isSpline, Pen& pen)
{
    if (isSpline && points.size() > 2) {
        DrawThrough(points, pen);
        return;
    }
    std::vector<Point2> flat;
    flat.reserve(points.size());
    for (const Point3 point : points)
        flat.push_back(pen.Place().matrix.Flat(point));
    pen.Polyline(flat, false);
}

// On the first point, where the segment that begins there has room for two.
void DrawArrow(std::string_view name, const std::vector<Point3>& points, double size, Pen& pen)
{
    if (points.size() < 2 || !(Length(points[1] - points[0]) >= 2 * size))
        return;
    const Matrix& matrix = pen.Place().matrix;
    DrawArrowhead(name, matrix.Flat(points[0]), matrix.FlatDirection(points[1] - points[0]),
                  size * ScaleOf(matrix), pen);
}

// The line from the arrow to the landing, and the dogleg after it.
std::vector<Point3> PathOf(const LeaderLine& line, const LeaderBranch& branch, bool hasDogleg)
{
    std::vector<Point3> path = line.vertices;
    if (branch.hasLanding) {
        path.push_back(branch.landing);
        if (hasDogleg && branch.length > 0)
            path.push_back(branch.landing + branch.length * branch.dogleg);
    }
    return path;
}

} // namespace

// The hook line is one of the segments.
void DrawLeader(const Leader& leader, Pen& pen)
{
    const LeaderStyle style(leader, pen.Place().drawing);
    const std::vector<Point3> points = FiniteOf(leader.vertices, pen);
    if (style.Colour() != kByBlock)
        pen.UseStyleOf({style.Colour(), kNoTrueColour, kNoName, kNoName});
    DrawLeaderLine(points, leader.isSpline != 0, pen);
    if (leader.hasArrow != 0)
        DrawArrow(style.Arrow(), points, style.ArrowSize(), pen);
}

void DrawMultiLeader(const MultiLeader& leader, Pen& pen)
{
    constexpr std::int32_t kNoLines = 0, kSplines = 2;
    if (leader.leaderType == kNoLines)
        return;
    pen.UseStyleOf(UnpackColour(leader.lineColour));
    const std::string_view arrow = ArrowOfBlock(leader.arrowHandle, pen.Place().drawing);
    for (const LeaderBranch& branch : leader.branches) {
        for (const LeaderLine& line : branch.lines) {
            const std::vector<Point3> points = FiniteOf(PathOf(line, branch, leader.hasDogleg != 0), pen);
            DrawLeaderLine(points, leader.leaderType == kSplines, pen);
            DrawArrow(arrow, points, leader.arrowSize, pen);
        }
    }
}

} // namespace prepare
