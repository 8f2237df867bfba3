#include "cli/contents/DimensionMeasure.h"

#include "cli/contents/LeadingNumbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <numbers>

namespace plexorn {

namespace {

constexpr double kDegrees = 180 / std::numbers::pi;

double Distance(const HeaderPoint& a, const HeaderPoint& b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

// Where the dimension line through d meets the extension line of p1; that of p2 runs through d.
HeaderPoint FootPoint(const HeaderPoint& d, const HeaderPoint& p1, const HeaderPoint& p2)
{
    if (d.y == p2.y)
        return {d.x, p1.y};
    if (d.x == p2.x)
        return {p1.x, d.y};
    const double m = (d.y - p2.y) / (d.x - p2.x);
    const double k = -1 / m;
    const double x = (m * p1.x - k * d.x + d.y - p1.y) / (m - k);
    return {x, std::fabs(m) <= 1 ? p1.y + m * (x - p1.x) : d.y + k * (x - d.x)};
}

// Where two lines meet; (0, 0) when they are parallel.
HeaderPoint Intersection(const HeaderPoint& a1, const HeaderPoint& a2, const HeaderPoint& b1,
                         const HeaderPoint& b2)
{
    const double denominator = (b2.y - b1.y) * (a2.x - a1.x) - (b2.x - b1.x) * (a2.y - a1.y);
    if (denominator == 0)
        return {};
    const double along = ((b2.x - b1.x) * (a1.y - b1.y) - (b2.y - b1.y) * (a1.x - b1.x)) / denominator;
    return {a1.x + along * (a2.x - a1.x), a1.y + along * (a2.y - a1.y)};
}

// The direction in degrees, 0 to 360, with y pointing down as in the picture.
double DirectionOf(const HeaderPoint& from, const HeaderPoint& to)
{
    const double degrees = std::atan2(from.y - to.y, to.x - from.x) * kDegrees;
    return degrees < 0 ? degrees + 360 : degrees;
}

double DirectionToFarther(const HeaderPoint& from, const HeaderPoint& first, const HeaderPoint& second)
{
    return DirectionOf(from, Distance(from, first) > Distance(from, second) ? first : second);
}

double Opposite(double degrees)
{
    return degrees + 180 > 360 ? degrees - 180 : degrees + 180;
}

bool Differs(double shown, double stated, double tolerance)
{
    return !(std::fabs(shown - stated) <= tolerance);
}

} // namespace

void DimensionMeasure::Take(int code, std::string_view value)
{
    if (code == 100)
        TakePart(value);
    else if (code == 1)
        m_hasOwnText = !value.empty() && value.find("<>") == std::string_view::npos;
    else if ((code >= 10 && code < 30) || code == 42 || code == 50)
        TakeNumber(code, LeadingNumber(value).value_or(0));
}

void DimensionMeasure::TakePart(std::string_view name)
{
    struct Name {
        std::string_view name;
        Part part;
    };
    constexpr Name kNames[] = {
        {"AcDbDimension", Part::Dimension},          {"AcDbAlignedDimension", Part::Aligned},
        {"AcDbRotatedDimension", Part::Rotated},     {"AcDbRadialDimension", Part::Radial},
        {"AcDbDiametricDimension", Part::Diametric}, {"AcDb2LineAngularDimension", Part::Angular},
    };
    const auto* const found = std::find_if(std::begin(kNames), std::end(kNames),
                                           [&](const Name& known) { return known.name == name; });
    m_last = found == std::end(kNames) ? Part::Other : found->part;
    m_hasDimension = m_hasDimension || m_last == Part::Dimension;
    m_hasAligned = m_hasAligned || m_last == Part::Aligned;
    if (m_hasDimension && (m_last == Part::Radial || m_last == Part::Diametric || m_last == Part::Angular))
        m_always = m_last;
}

void DimensionMeasure::TakeNumber(int code, double number)
{
    if (code == 42)
        m_stated = number;
    else if (code == 50)
        m_rotation = number;
    else if (const auto point = static_cast<std::size_t>(code % 10); point < std::size(m_points))
        (code / 10 == 1 ? m_points[point].x : m_points[point].y) = number;
}

bool DimensionMeasure::IsDrawn() const
{
    const bool isLinear = m_last == Part::Aligned || (m_last == Part::Rotated && m_hasAligned);
    return m_hasDimension && (isLinear || m_always != Part::None);
}

bool DimensionMeasure::ShowsOtherNumber() const
{
    // Some programs write 0 or -1 for a measurement that they did not take.
    if (!IsDrawn() || m_hasOwnText || !(m_stated > 0))
        return false;
    // Numbers are shown with six digits, angles with two decimals.
    const double tolerance = m_stated * 1e-5;
    switch (m_always) {
    case Part::Radial:
        return Differs(Distance(m_points[0], m_points[5]), m_stated, tolerance);
    case Part::Diametric:
        return Differs(Distance(m_points[0], m_points[5]) / 2, m_stated, tolerance);
    case Part::Angular:
        return Differs(Angle(), m_stated * kDegrees, 0.01);
    default:
        return Differs(Linear(), m_stated, tolerance);
    }
}

double DimensionMeasure::Linear() const
{
    const HeaderPoint& d = m_points[0];
    const HeaderPoint &p1 = m_points[3], &p2 = m_points[4];
    if (m_last == Part::Rotated && m_rotation == 90)
        return std::fabs(d.y - (d.y == p1.y ? p2.y : p1.y));
    if (m_last == Part::Rotated && m_rotation == 0)
        return std::fabs(d.x - (d.x == p1.x ? p2.x : p1.x));
    return Distance(d, FootPoint(d, p1, p2));
}

double DimensionMeasure::Angle() const
{
    const HeaderPoint &d = m_points[0], &a1 = m_points[3], &a2 = m_points[4], &b = m_points[5];
    const HeaderPoint vertex = Intersection(a1, a2, d, b);
    const double first = DirectionToFarther(vertex, a1, a2), second = DirectionToFarther(vertex, d, b);
    std::array<double, 4> bounds{first, second, Opposite(first), Opposite(second)};
    // NaNs cannot be sorted.
    if (!std::isfinite(first + second))
        return 0;
    std::sort(bounds.begin(), bounds.end());
    const double arc = DirectionOf(vertex, m_points[6]);
    for (std::size_t i = 0; i < 3; ++i)
        if (bounds[i] <= arc && arc <= bounds[i + 1])
            return bounds[i + 1] - bounds[i];
    return arc <= bounds[3] ? 360 - bounds[0] + bounds[3] : 0;
}

} // namespace plexorn
