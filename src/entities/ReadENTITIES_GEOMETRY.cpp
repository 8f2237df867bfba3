// LINE, ARC, CIRCLE, ELLIPSE and LWPOLYLINE.
#include "entities/DXF_GRAPHIC_GEOMETRY.h"
#include "entities/RareFields.h"
#include "entities/ReadEntity.h"

namespace {

using LINE = DXF_GRAPHIC_LINE;
constexpr auto kLineFields = DxfFields<LINE>(
    {
        End(0),
        {10, &LINE::m_dStartX},
        {20, &LINE::m_dStartY},
        {30, &LINE::m_dStartZ},
        {11, &LINE::m_dEndX},
        {21, &LINE::m_dEndY},
        {31, &LINE::m_dEndZ},
    },
    kThickness, kExtrusion);

using ARC = DXF_GRAPHIC_ARC;
constexpr auto kArcFields = DxfFields<ARC>(
    {
        End(0),
        {10, &ARC::m_dCenterX},
        {20, &ARC::m_dCenterY},
        {30, &ARC::m_dCenterZ},
        {40, &ARC::m_dRadius},
        {50, &ARC::m_dStartAngle},
        {51, &ARC::m_dEndAngle},
    },
    kThickness, kExtrusion);

using CIRCLE = DXF_GRAPHIC_CIRCLE;
constexpr auto kCircleFields = DxfFields<CIRCLE>(
    {
        End(0),
        {10, &CIRCLE::m_dCenterX},
        {20, &CIRCLE::m_dCenterY},
        {30, &CIRCLE::m_dCenterZ},
        {40, &CIRCLE::m_dRadius},
    },
    kThickness, kExtrusion);

// 39 is missing: an ellipse's thickness is reported as an unknown code (quirk 74).
using ELLIPSE = DXF_GRAPHIC_ELLIPSE;
constexpr auto kEllipseFields = DxfFields<ELLIPSE>(
    {
        End(0),
        {10, &ELLIPSE::m_dCenterX},
        {20, &ELLIPSE::m_dCenterY},
        {30, &ELLIPSE::m_dCenterZ},
        {11, &ELLIPSE::m_dMajorAxisX},
        {21, &ELLIPSE::m_dMajorAxisY},
        {31, &ELLIPSE::m_dMajorAxisZ},
        {40, &ELLIPSE::m_dRatio},
        {41, &ELLIPSE::m_dStartParam},
        {42, &ELLIPSE::m_dEndParam},
    },
    kExtrusion);

// 10 and 20 are the reader's own.
using POLYLINE = DXF_GRAPHIC_LWPOLYLINE;
constexpr auto kPolylineFields = DxfFields<POLYLINE>(
    {
        End(0),
        {90, &POLYLINE::m_nVertexCount},
        {70, &POLYLINE::m_nFlags},
        {43, &POLYLINE::m_dConstantWidth},
        {38, &POLYLINE::m_dElevation},
        {91, &POLYLINE::m_nVertexId},
        {40, &POLYLINE::m_nStartWidth},
        {41, &POLYLINE::m_nEndWidth},
        {42, &POLYLINE::m_nBulge},
    },
    kThickness, kExtrusion);

} // namespace

bool CDxfRead::ReadENTITIES_LINE(CDxfStream& stream, DXF_ENTITY_LIST& list)
{
    return ReadEntity(*this, stream, list, kLineFields);
}

bool CDxfRead::ReadENTITIES_ARC(CDxfStream& stream, DXF_ENTITY_LIST& list)
{
    return ReadEntity(*this, stream, list, kArcFields);
}

bool CDxfRead::ReadENTITIES_CIRCLE(CDxfStream& stream, DXF_ENTITY_LIST& list)
{
    return ReadEntity(*this, stream, list, kCircleFields);
}

bool CDxfRead::ReadENTITIES_ELLIPSE(CDxfStream& stream, DXF_ENTITY_LIST& list)
{
    return ReadEntity(*this, stream, list, kEllipseFields);
}

// A vertex is made by its 20: a 10 alone adds none, and a 20 alone repeats the last x (quirk 58).
bool CDxfRead::ReadENTITIES_LWPOLYLINE(CDxfStream& stream, DXF_ENTITY_LIST& list)
{
    POLYLINE* const polyline = NewEntity<POLYLINE>(*this, list);
    DXF_POINT2D pending;
    const auto other = [&](std::int32_t code, CDxfLine value) {
        if (code == 10) {
            pending.x = ParseLineReal(value);
        } else if (code == 20) {
            pending.y = ParseLineReal(value);
            polyline->m_vertices.Add(store, pending);
        } else {
            ReadENTITIES_COMMON(code, value, *polyline, stream);
        }
    };
    const DXF_END end =
        ReadFields(stream, *polyline, kPolylineFields, DXF_BAD_CODE<POLYLINE>::kMessage, other);
    polyline->m_vertices.Shrink(store);
    return end == DXF_END_ZERO;
}
