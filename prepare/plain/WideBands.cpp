#include "prepare/plain/WideBands.h"

#include "prepare/plain/AreaFiller.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace prepare {

namespace {

Point2 Direction(Point2 from, Point2 to)
{
    return (1 / Length(to - from)) * (to - from);
}

Point2 DirectionOr(Point2 given, Point2 from, Point2 to)
{
    return given == Point2{} ? Direction(from, to) : Direction({}, given);
}

// From the bend of a line to the corner of its left side. half is half of its width.
Point2 Mitre(Point2 before, Point2 after, double half)
{
    const Point2 sum = LeftOf(before) + LeftOf(after);
    const double square = Dot(sum, sum);
    constexpr double kBack = 1e-6; // the line returns on itself
    return square > kBack ? (2 * half / square) * sum : half * LeftOf(after);
}

// The area of one segment.
class Band {
public:
    explicit Band(const WideSegment& segment);

    bool IsNothing() const { return m_points.size() < 2; }
    bool Meets(const Band& next) const;
    // Both end in the mitre of their sides, so that they share an edge.
    void Join(Band& next);
    std::vector<Point2> Outline() const;

private:
    void FindSides();

    std::vector<Point2> m_points; // of the middle line
    Point2 m_first;               // directions at its ends
    Point2 m_last;
    std::vector<double> m_halves;
    std::vector<Point2> m_sides; // from each point to the left side
};

Band::Band(const WideSegment& segment) : m_points(segment.points)
{
    m_points.erase(std::unique(m_points.begin(), m_points.end()), m_points.end());
    if (IsNothing())
        return;
    std::vector<double> lengths{0};
    for (std::size_t i = 1; i < m_points.size(); ++i)
        lengths.push_back(lengths.back() + Length(m_points[i] - m_points[i - 1]));
    for (const double length : lengths) {
        const double share = length / lengths.back();
        m_halves.push_back((1 - share) * segment.startHalf + share * segment.endHalf);
    }
    m_first = DirectionOr(segment.startDirection, m_points[0], m_points[1]);
    m_last = DirectionOr(segment.endDirection, m_points[m_points.size() - 2], m_points.back());
    FindSides();
}

void Band::FindSides()
{
    m_sides.push_back(m_halves.front() * LeftOf(m_first));
    for (std::size_t i = 1; i + 1 < m_points.size(); ++i)
        m_sides.push_back(Mitre(Direction(m_points[i - 1], m_points[i]),
                                Direction(m_points[i], m_points[i + 1]), m_halves[i]));
    m_sides.push_back(m_halves.back() * LeftOf(m_last));
}

// They meet in a mitre that is no longer than the pieces at the bend.
bool Band::Meets(const Band& next) const
{
    constexpr double kSame = 1e-9;
    constexpr double kSharpest = -0.5; // the cosine of a turn by 120 degrees
    const double half = m_halves.back();
    const Point2 before = m_last, after = next.m_first;
    const double cosine = Dot(before, after);
    if (std::fabs(half - next.m_halves.front()) > kSame * half || !(cosine > kSharpest))
        return false;
    const double along = half * std::fabs(Cross(before, after)) / (1 + cosine);
    return along <= Length(m_points.back() - m_points[m_points.size() - 2]) &&
           along <= Length(next.m_points[1] - next.m_points[0]);
}

void Band::Join(Band& next)
{
    m_sides.back() = next.m_sides.front() = Mitre(m_last, next.m_first, m_halves.back());
}

std::vector<Point2> Band::Outline() const
{
    std::vector<Point2> outline;
    outline.reserve(2 * m_points.size());
    for (std::size_t i = 0; i < m_points.size(); ++i)
        outline.push_back(m_points[i] + m_sides[i]);
    for (std::size_t i = m_points.size(); i-- > 0;)
        outline.push_back(m_points[i] - m_sides[i]);
    outline.erase(std::unique(outline.begin(), outline.end()), outline.end());
    if (outline.size() > 1 && outline.front() == outline.back())
        outline.pop_back();
    return outline;
}

} // namespace

void FillBands(std::span<const WideSegment> segments, bool isClosed, Pen& pen)
{
    std::vector<Band> bands;
    for (const WideSegment& segment : segments)
        if (Band band(segment); !band.IsNothing())
            bands.push_back(std::move(band));
    std::vector<bool> isJoined(bands.size());
    for (std::size_t i = isClosed && bands.size() > 2 ? 0 : 1; i < bands.size(); ++i) {
        Band& before = bands[i > 0 ? i - 1 : bands.size() - 1];
        isJoined[i] = before.Meets(bands[i]);
        if (isJoined[i])
            before.Join(bands[i]);
    }
    AreaFiller filler(pen);
    for (std::size_t i = 0; i < bands.size(); ++i)
        filler.Add(bands[i].Outline(), i > 0 && isJoined[i]);
    filler.Fill();
}

} // namespace prepare
