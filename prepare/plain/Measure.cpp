#include "prepare/plain/Measure.h"

#include "prepare/plain/BulgeArc.h"
#include "prepare/plain/Curves.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

namespace prepare {

namespace {

// Wide enough for nearly any text, in heights of capitals for each byte.
constexpr double kWidthOfByte = 0.7;

} // namespace

Box MeasuredBlock::Bounds() const
{
    return BoxOf(Points());
}

double MeasuredBlock::Radius() const
{
    double x = 0, y = 0;
    for (const Point2& point : Points()) {
        x = std::max(x, std::fabs(point.x));
        y = std::max(y, std::fabs(point.y));
    }
    return x + y;
}

std::size_t Measure::NewBlock(std::string_view)
{
    m_blocks.emplace_back();
    return m_blocks.size() - 1;
}

// Directions next to each other mostly share their farthest point.
void Measure::EndBlock(std::size_t number)
{
    const auto open = m_open.find(number);
    if (open == m_open.end())
        return;
    const Measured& measured = open->second.measured;
    MeasuredBlock& block = m_blocks[number];
    block.thinnestWeight = measured.thinnestWeight;
    block.smallestText = measured.smallestText;
    if (!measured.hull.IsEmpty()) {
        std::array<Point2, Hull::kDirections> points = measured.hull.Points();
        auto end = std::unique(points.begin(), points.end());
        if (end - points.begin() > 1 && *(end - 1) == points.front())
            --end;
        block.count = static_cast<std::uint32_t>(end - points.begin());
        Point2* const kept = static_cast<Point2*>(m_points.Allocate(block.count * sizeof(Point2)));
        block.points = std::uninitialized_copy(points.begin(), end, kept) - block.count;
    }
    m_open.erase(open);
}

void Measure::Sink::Line(const Style& style, Point2 start, Point2 end)
{
    measured.thinnestWeight = std::min(measured.thinnestWeight, style.weight);
    measured.hull.Add(start);
    measured.hull.Add(end);
}

void Measure::Sink::Circle(const Style& style, Point2 centre, double radius)
{
    Arc(style, centre, radius, 0, kTurn);
}

void Measure::Sink::Arc(const Style& style, Point2 centre, double radius, double start, double end)
{
    measured.thinnestWeight = std::min(measured.thinnestWeight, style.weight);
    measured.hull.AddArc(centre, radius, start, end);
}

void Measure::Sink::Ellipse(const Style& style, Point2 centre, Point2 majorAxis, double ratio, double start,
                            double end)
{
    constexpr int kSteps = 32;
    measured.thinnestWeight = std::min(measured.thinnestWeight, style.weight);
    if (measured.hull.IsWithin(centre, Length(majorAxis)))
        return;
    const Point2 minorAxis{-ratio * majorAxis.y, ratio * majorAxis.x};
    for (int i = 0; i <= kSteps; ++i) {
        const double parameter = start + (end - start) * i / kSteps;
        measured.hull.Add(centre + std::cos(parameter) * majorAxis + std::sin(parameter) * minorAxis);
    }
}

void Measure::Sink::Polyline(const Style& style, std::span<const PlainVertex> vertices, bool isClosed)
{
    measured.thinnestWeight = std::min(measured.thinnestWeight, style.weight);
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const PlainVertex& from = vertices[i];
        measured.hull.Add(from.point);
        if (from.bulge == 0 || (i + 1 == vertices.size() && !isClosed))
            continue;
        const PlainVertex& to = vertices[i + 1 == vertices.size() ? 0 : i + 1];
        const BulgeArc arc = CircularArcOf(from.point, to.point, from.bulge);
        if (arc.radius > 0)
            measured.hull.AddArc(arc.centre, arc.radius, arc.start, arc.end);
    }
}

void Measure::Sink::Text(const Style&, const PlainText& text)
{
    measured.smallestText = std::min(measured.smallestText, Length(text.up));
    const double width = kWidthOfByte * static_cast<double>(text.text.size());
    const double before = text.anchor == Anchor::Start ? 0 : text.anchor == Anchor::Middle ? 0.5 : 1;
    for (const double x : {-before * width, (1 - before) * width})
        for (const double y : {-0.3, 1.0})
            measured.hull.Add(text.point + x * text.along + y * text.up);
}

void Measure::Sink::Fill(const Style&, std::span<const std::vector<Point2>> rings)
{
    for (const std::vector<Point2>& ring : rings)
        for (const Point2& point : ring)
            measured.hull.Add(point);
}

void Measure::Sink::Insert(std::size_t block, Point2 point, double rotation, bool isMirrored)
{
    const MeasuredBlock& inside = owner.OfBlock(block);
    measured.thinnestWeight = std::min(measured.thinnestWeight, inside.thinnestWeight);
    measured.smallestText = std::min(measured.smallestText, inside.smallestText);
    if (inside.count == 0 || measured.hull.IsWithin(point, inside.Radius()))
        return;
    const double cosine = std::cos(rotation), sine = std::sin(rotation);
    for (Point2 p : inside.Points()) {
        if (isMirrored)
            p.y = -p.y;
        measured.hull.Add(point + Point2{cosine * p.x - sine * p.y, sine * p.x + cosine * p.y});
    }
}

} // namespace prepare
