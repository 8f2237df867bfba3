#include "convert/CDxfReadToQuillmar.h"
#include "drawing/Angles.h"
#include "drawing/ArcPath.h"
#include "entities/DXF_GRAPHIC_GEOMETRY.h"

#include <cmath>

namespace {

// To [0, 2 pi). The angles come from atan2, so each loop makes one step at most.
double NormalizeRadians(double angle)
{
    while (angle < 0)
        angle += kTurn;
    while (angle >= kTurn)
        angle -= kTurn;
    return angle;
}

// The point of an ellipse along the axes around center that is seen under an angle.
DXF_POINT2D PointOfEllipse(const DXF_POINT2D& center, double a, double b, double angle)
{
    const double sine = std::sin(angle);
    const double cosine = std::cos(angle);
    const double radius =
        std::sqrt((a * a) * (b * b) / ((a * a) * (sine * sine) + (b * b) * (cosine * cosine)));
    return {center.x + radius * cosine, center.y + radius * sine};
}

} // namespace

// The element is drawn unrotated; "rotate" turns it about ("center-x", "center-y") (quirk 54).
void CDxfReadToQuillmar::OnEllipse(const DXF_GRAPHIC_ELLIPSE& ellipse)
{
    constexpr double kFullCircle = 0.001; // radians between the ends of a whole ellipse (quirk 53)
    const double mx = ellipse.m_dMajorAxisX, my = ellipse.m_dMajorAxisY, mz = ellipse.m_dMajorAxisZ;
    const double ratio = ellipse.m_dRatio;
    const double major = std::sqrt(mx * mx + my * my + mz * mz);
    const double minor = ratio * major;
    double start = std::atan2(ratio * std::sin(ellipse.m_dStartParam), std::cos(ellipse.m_dStartParam));
    double end = std::atan2(ratio * std::sin(ellipse.m_dEndParam), std::cos(ellipse.m_dEndParam));
    double rotation = std::atan2(my / major, mx / major);
    // The second difference is the wrong way round: without a wrap the arc is never large (quirk 52).
    const bool isLarge = start > end ? kTurn - start + end >= kPi : start - end >= kPi;

    if (!MayDraw())
        return;
    const DXF_POINT2D center = Transform(ellipse.m_dCenterX, ellipse.m_dCenterY);
    const double a = scale * major;
    const double b = scale * minor;
    start = NormalizeRadians(start);
    end = NormalizeRadians(end);
    const bool isWhole = std::fabs(end - start) < kFullCircle;
    if (IsFlipped()) {
        start = -start;
        end = -end;
        rotation = -rotation;
    }

    QlmNode node;
    if (isWhole) {
        node = qlmCreateEllipse(parentNode, L"", ToFloat(a), ToFloat(b), ToFloat(center.x), ToFloat(center.y),
                                0.0f, 0.0f);
        SetAttribute(node, L"fill-opacity", L"0");
    } else {
        const CDxfArcPath data(PointOfEllipse(center, a, b, start), a, b, ArcFlags(isLarge, !IsFlipped()),
                               PointOfEllipse(center, a, b, end));
        node = qlmCreatePath(parentNode, L"", data.c_str(), 0.0f, 0.0f);
    }
    SetNumber(node, L"center-x", center.x);
    SetNumber(node, L"center-y", center.y);
    SetNumber(node, L"rotate", rotation * kDegreesPerRadian);
    SetStyle(node, ellipse);
}
