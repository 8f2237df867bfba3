#include "prepare/plain/Spline.h"

#include "prepare/plain/Curves.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <span>

namespace prepare {

namespace {

// How many chords there may be for each control point.
constexpr std::size_t kChordsOfPoint = 128;

using Bezier = std::array<WeightedPoint, kHighestDegree + 1>;

WeightedPoint Between(const WeightedPoint& a, const WeightedPoint& b, double share)
{
    const double rest = 1 - share;
    return {rest * a.x + share * b.x, rest * a.y + share * b.y, rest * a.w + share * b.w};
}

double DistanceFromChord(Point2 point, Point2 start, Point2 end)
{
    const Point2 chord = end - start, offset = point - start;
    const double square = Dot(chord, chord);
    const double along = square > 0 ? std::clamp(Dot(offset, chord) / square, 0.0, 1.0) : 0;
    return Length(offset - along * chord);
}

// Flattens pieces of one degree, by halves.
class Flattener {
public:
    // mostChords: of each piece.
    Flattener(std::size_t degree, bool isRational, Fineness& curves, double coarsest, std::size_t mostChords)
        : m_degree(degree), m_depth(static_cast<std::size_t>(std::bit_width(mostChords) - 1)),
          // The distance from a chord is convex: a curve is as far as its inner control points at most, times
          // the share that they can have in one of its points.
          m_share(isRational ? 1 : 1 - std::ldexp(1, 1 - static_cast<int>(degree))), m_curves(curves),
          m_coarsest(coarsest)
    {
    }

    // Adds the points after the curve's first one.
    void Add(const Bezier& curve, std::vector<Point2>& points);

private:
    struct Piece {
        Bezier curve;
        std::size_t depth;
    };

    void AddHalves(const Bezier& curve, std::vector<Point2>& points);
    bool IsFlat(const Bezier& curve) const;
    Bezier SplitOffSecondHalf(Bezier& curve) const;

    std::size_t m_degree;
    std::size_t m_depth;
    double m_share;
    Fineness& m_curves;
    double m_coarsest;
    double m_tolerance = 0;    // of the inner control points of the piece that is being added
    std::vector<Piece> m_rest; // the next one last
};

bool Flattener::IsFlat(const Bezier& curve) const
{
    const Point2 start = curve[0].Flat(), end = curve[m_degree].Flat();
    for (std::size_t i = 1; i < m_degree; ++i) {
        if (!(DistanceFromChord(curve[i].Flat(), start, end) <= m_tolerance))
            return false;
    }
    return true;
}

Bezier Flattener::SplitOffSecondHalf(Bezier& curve) const
{
    Bezier second;
    second[m_degree] = curve[m_degree];
    for (std::size_t level = 1; level <= m_degree; ++level) {
        for (std::size_t i = m_degree; i >= level; --i)
            curve[i] = Between(curve[i - 1], curve[i], 0.5);
        second[m_degree - level] = curve[m_degree];
    }
    return second;
}

void Flattener::Add(const Bezier& curve, std::vector<Point2>& points)
{
    const std::size_t before = points.size();
    m_tolerance = m_share > 0 ? std::min(m_curves.Tolerance(), m_coarsest) / m_share : HUGE_VAL;
    AddHalves(curve, points);
    m_curves.Take(1, points.size() - before);
}

void Flattener::AddHalves(const Bezier& curve, std::vector<Point2>& points)
{
    m_rest.assign(1, {curve, 0});
    while (!m_rest.empty()) {
        Piece& piece = m_rest.back();
        if (piece.depth == m_depth || IsFlat(piece.curve)) {
            points.push_back(piece.curve[m_degree].Flat());
            m_rest.pop_back();
            continue;
        }
        const std::size_t depth = ++piece.depth;
        Bezier first = piece.curve;
        piece.curve = SplitOffSecondHalf(first);
        m_rest.push_back({first, depth});
    }
}

// The spline between the knot of a number and the next one.
class Span {
public:
    Span(const BSpline& spline, std::size_t knot) : m_spline(spline), m_knot(knot) {}

    bool IsEmpty() const { return !(m_spline.knots[m_knot] < m_spline.knots[m_knot + 1]); }
    Bezier Curve() const;

private:
    WeightedPoint ControlPoint(std::size_t number) const;

    const BSpline& m_spline;
    std::size_t m_knot;
};

Bezier Span::Curve() const
{
    Bezier curve;
    for (std::size_t i = 0; i <= m_spline.degree; ++i)
        curve[i] = ControlPoint(i);
    return curve;
}

// De Boor's algorithm: steps up to number use the span's end, the others its start.
WeightedPoint Span::ControlPoint(std::size_t number) const
{
    const std::size_t degree = m_spline.degree, first = m_knot - degree;
    const auto& knots = m_spline.knots;
    Bezier points;
    std::copy_n(m_spline.controlPoints.begin() + static_cast<std::ptrdiff_t>(first), degree + 1,
                points.begin());
    for (std::size_t step = 1; step <= degree; ++step) {
        const double t = knots[step <= number ? m_knot + 1 : m_knot];
        for (std::size_t i = degree; i >= step; --i) {
            const double low = knots[first + i], high = knots[m_knot + 1 + i - step];
            points[i] = Between(points[i - 1], points[i], (t - low) / (high - low));
        }
    }
    return points[degree];
}

bool IsRational(const BSpline& spline)
{
    const auto& points = spline.controlPoints;
    return std::any_of(points.begin(), points.end(),
                       [&](const WeightedPoint& point) { return point.w != points.front().w; });
}

// Solves equations that each contain their own unknown and the ones before and after it.
class Tridiagonal {
public:
    explicit Tridiagonal(std::size_t count) : m_rows(count) {}

    struct Row {
        double before = 0;
        double own = 1;
        double after = 0;
        Point2 value;
        double corner = 0; // the value of a second system with the same rows
    };
    Row& operator[](std::size_t row) { return m_rows[row]; }
    std::size_t Count() const { return m_rows.size(); }

    // Leaves the unknowns in value and corner.
    void Solve();

private:
    std::vector<Row> m_rows;
};

void Tridiagonal::Solve()
{
    for (std::size_t i = 1; i < m_rows.size(); ++i) {
        const Row& last = m_rows[i - 1];
        Row& row = m_rows[i];
        const double factor = row.before / last.own;
        row.own -= factor * last.after;
        row.value = row.value - factor * last.value;
        row.corner -= factor * last.corner;
    }
    for (std::size_t i = m_rows.size(); i-- > 0;) {
        Row& row = m_rows[i];
        if (i + 1 < m_rows.size()) {
            row.value = row.value - row.after * m_rows[i + 1].value;
            row.corner -= row.after * m_rows[i + 1].corner;
        }
        row.value = (1 / row.own) * row.value;
        row.corner /= row.own;
    }
}

// The derivatives of a smooth cubic in its points.
class Slopes {
public:
    explicit Slopes(const CurveThrough& curve) : m_curve(curve), m_rows(curve.points.size()) {}

    std::vector<Point2> Find();

private:
    double Step(std::size_t i) const { return m_curve.parameters[i + 1] - m_curve.parameters[i]; }
    Point2 Rise(std::size_t i) const { return (1 / Step(i)) * (m_curve.points[i + 1] - m_curve.points[i]); }
    // The row that makes the curvature the same on both sides of a point, between these two steps.
    Tridiagonal::Row Smooth(std::size_t before, std::size_t after) const;
    void FindOpen();
    void FindClosed();

    const CurveThrough& m_curve;
    Tridiagonal m_rows;
};

Tridiagonal::Row Slopes::Smooth(std::size_t before, std::size_t after) const
{
    const double left = Step(before), right = Step(after);
    return {right, 2 * (left + right), left, 3 * (right * Rise(before) + left * Rise(after)), 0};
}

void Slopes::FindOpen()
{
    const std::size_t last = m_rows.Count() - 1;
    for (std::size_t i = 1; i < last; ++i)
        m_rows[i] = Smooth(i - 1, i);
    if (m_curve.hasStart)
        m_rows[0] = {0, 1, 0, m_curve.start, 0};
    else
        m_rows[0] = {0, 2, 1, 3 * Rise(0), 0};
    if (m_curve.hasEnd)
        m_rows[last] = {0, 1, 0, m_curve.end, 0};
    else
        m_rows[last] = {1, 2, 0, 3 * Rise(last - 1), 0};
    m_rows.Solve();
}

// The first and the last row of a ring also meet each other: a second system makes up for that (Sherman and
// Morrison's formula).
void Slopes::FindClosed()
{
    const std::size_t last = m_rows.Count() - 2; // the last point is the first one again
    Tridiagonal ring(last + 1);
    for (std::size_t i = 0; i <= last; ++i)
        ring[i] = Smooth(i == 0 ? last : i - 1, i);
    const double upper = ring[0].before, lower = ring[last].after, pivot = -ring[0].own;
    ring[0].own -= pivot;
    ring[last].own -= upper * lower / pivot;
    ring[0].corner = pivot;
    ring[last].corner = lower;
    ring.Solve();
    const double share = upper / pivot;
    const double divisor = 1 + ring[0].corner + share * ring[last].corner;
    const Point2 factor = (1 / divisor) * (ring[0].value + share * ring[last].value);
    for (std::size_t i = 0; i <= last; ++i)
        m_rows[i].value = ring[i].value - ring[i].corner * factor;
    m_rows[last + 1].value = m_rows[0].value;
}

std::vector<Point2> Slopes::Find()
{
    constexpr std::size_t kLeastOfRing = 4; // three points, and the first one again
    m_curve.isClosed&& m_rows.Count() >= kLeastOfRing ? FindClosed() : FindOpen();
    std::vector<Point2> slopes;
    slopes.reserve(m_rows.Count());
    for (std::size_t i = 0; i < m_rows.Count(); ++i)
        slopes.push_back(m_rows[i].value);
    return slopes;
}

} // namespace

std::vector<double> UniformKnots(std::size_t controlPoints, std::size_t degree)
{
    std::vector<double> knots(controlPoints + degree + 1);
    for (std::size_t i = 0; i < knots.size(); ++i)
        knots[i] = static_cast<double>(std::clamp(i, degree, controlPoints) - degree);
    return knots;
}

bool AreGoodKnots(const std::vector<double>& knots, std::size_t controlPoints, std::size_t degree)
{
    return knots.size() == controlPoints + degree + 1 &&
           std::all_of(knots.begin(), knots.end(), [](double knot) { return std::isfinite(knot); }) &&
           std::is_sorted(knots.begin(), knots.end()) && knots[degree] < knots[controlPoints];
}

bool AreGoodWeights(const std::vector<double>& weights, std::size_t controlPoints)
{
    return weights.size() == controlPoints &&
           std::all_of(weights.begin(), weights.end(), [](double w) { return w > 0 && std::isfinite(w); });
}

std::vector<Point2> Flatten(const BSpline& spline, Fineness& curves, double coarsest)
{
    const std::size_t points = spline.controlPoints.size();
    std::size_t spans = 0;
    for (std::size_t knot = spline.degree; knot < points; ++knot)
        spans += !Span(spline, knot).IsEmpty();
    std::vector<Point2> flat;
    // However few spans there are, that many points bend one of them.
    const std::size_t most = kChordsOfPoint * (spline.degree + 1);
    Flattener flattener(spline.degree, IsRational(spline), curves, coarsest,
                        std::min(kChordsOfPoint * points / std::max<std::size_t>(spans, 1), most));
    for (std::size_t knot = spline.degree; knot < points; ++knot) {
        const Span span(spline, knot);
        if (span.IsEmpty())
            continue;
        const Bezier curve = span.Curve();
        if (flat.empty())
            flat.push_back(curve[0].Flat());
        flattener.Add(curve, flat);
    }
    return flat;
}

std::vector<Point2> Flatten(const CurveThrough& curve, Fineness& curves, double coarsest)
{
    constexpr std::size_t kCubic = 3;
    const std::vector<Point2> slopes = Slopes(curve).Find();
    std::vector<Point2> flat{curve.points.front()};
    Flattener flattener(kCubic, false, curves, coarsest, kChordsOfPoint);
    for (std::size_t i = 0; i + 1 < curve.points.size(); ++i) {
        const double third = (curve.parameters[i + 1] - curve.parameters[i]) / 3;
        const Point2 start = curve.points[i], end = curve.points[i + 1];
        const Bezier piece = {Weighted(start), Weighted(start + third * slopes[i]),
                              Weighted(end - third * slopes[i + 1]), Weighted(end)};
        flattener.Add(piece, flat);
    }
    return flat;
}

} // namespace prepare
