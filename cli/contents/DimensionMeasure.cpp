#include "cli/contents/DimensionMeasure.h"

#include "base/Numbers.h"
#include "drawing/DimensionPoints.h"
#include "drawing/Transform.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace plexorn {

namespace {

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
        TakeNumber(code, LeadingReal(value).value_or(0));
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
        return Differs(Distance(Point(0), Point(5)), m_stated, tolerance);
    case Part::Diametric:
        return Differs(Distance(Point(0), Point(5)) / 2, m_stated, tolerance);
    case Part::Angular:
        return Differs(Angle(), m_stated * kDegreesPerRadian, 0.01);
    default:
        return Differs(Linear(), m_stated, tolerance);
    }
}

// Where the module draws the point of the codes 10, 11 and so on.
DXF_POINT2D DimensionMeasure::Point(std::size_t number) const
{
    return TransformPoint(m_points[number].x, m_points[number].y, 1, kFlippedYAxisMode);
}

double DimensionMeasure::Linear() const
{
    const DXF_POINT2D d = Point(0), p1 = Point(3), p2 = Point(4);
    const bool isRotated = m_last == Part::Rotated;
    return Distance(d, isRotated ? RotatedPoints(d, p1, p2, m_rotation).foot : FootPoint(d, p1, p2));
}

double DimensionMeasure::Angle() const
{
    const AnglePoints points{Point(3), Point(4), Point(0), Point(5), Point(6)};
    const DXF_POINT2D vertex = Intersection(points.a1, points.a2, points.b1, points.b2);
    return MeasuredSector(points, vertex, kFlippedYAxisMode).span;
}

} // namespace plexorn
