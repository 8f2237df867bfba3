// LINE, ARC, CIRCLE, ELLIPSE and LWPOLYLINE.
#include "entities/DXF_GRAPHIC_GEOMETRY.h"
#include "entities/RareFields.h"
#include "entities/ReadEntity.h"

namespace {

using LINE = DXF_GRAPHIC_LINE;
using LINE_FIELDS = DxfFields<LINE>;
constexpr auto kLineFields = LINE_FIELDS::Table({
    LINE_FIELDS::End(0),
    LINE_FIELDS::Function(39, StoreRare<LINE, &DXF_GRAPHIC_RARE::m_dThickness>),
    LINE_FIELDS::Field(10, &LINE::m_dStartX),
    LINE_FIELDS::Field(20, &LINE::m_dStartY),
    LINE_FIELDS::Field(30, &LINE::m_dStartZ),
    LINE_FIELDS::Field(11, &LINE::m_dEndX),
    LINE_FIELDS::Field(21, &LINE::m_dEndY),
    LINE_FIELDS::Field(31, &LINE::m_dEndZ),
    LINE_FIELDS::Function(210, StoreRare<LINE, &DXF_GRAPHIC_RARE::m_dExtrusionX>),
    LINE_FIELDS::Function(220, StoreRare<LINE, &DXF_GRAPHIC_RARE::m_dExtrusionY>),
    LINE_FIELDS::Function(230, StoreRare<LINE, &DXF_GRAPHIC_RARE::m_dExtrusionZ>),
});

using ARC = DXF_GRAPHIC_ARC;
using ARC_FIELDS = DxfFields<ARC>;
constexpr auto kArcFields = ARC_FIELDS::Table({
    ARC_FIELDS::End(0),
    ARC_FIELDS::Function(39, StoreRare<ARC, &DXF_GRAPHIC_RARE::m_dThickness>),
    ARC_FIELDS::Field(10, &ARC::m_dCenterX),
    ARC_FIELDS::Field(20, &ARC::m_dCenterY),
    ARC_FIELDS::Field(30, &ARC::m_dCenterZ),
    ARC_FIELDS::Field(40, &ARC::m_dRadius),
    ARC_FIELDS::Field(50, &ARC::m_dStartAngle),
    ARC_FIELDS::Field(51, &ARC::m_dEndAngle),
    ARC_FIELDS::Function(210, StoreRare<ARC, &DXF_GRAPHIC_RARE::m_dExtrusionX>),
    ARC_FIELDS::Function(220, StoreRare<ARC, &DXF_GRAPHIC_RARE::m_dExtrusionY>),
    ARC_FIELDS::Function(230, StoreRare<ARC, &DXF_GRAPHIC_RARE::m_dExtrusionZ>),
});

using CIRCLE = DXF_GRAPHIC_CIRCLE;
using CIRCLE_FIELDS = DxfFields<CIRCLE>;
constexpr auto kCircleFields = CIRCLE_FIELDS::Table({
    CIRCLE_FIELDS::End(0),
    CIRCLE_FIELDS::Function(39, StoreRare<CIRCLE, &DXF_GRAPHIC_RARE::m_dThickness>),
    CIRCLE_FIELDS::Field(10, &CIRCLE::m_dCenterX),
    CIRCLE_FIELDS::Field(20, &CIRCLE::m_dCenterY),
    CIRCLE_FIELDS::Field(30, &CIRCLE::m_dCenterZ),
    CIRCLE_FIELDS::Field(40, &CIRCLE::m_dRadius),
    CIRCLE_FIELDS::Function(210, StoreRare<CIRCLE, &DXF_GRAPHIC_RARE::m_dExtrusionX>),
    CIRCLE_FIELDS::Function(220, StoreRare<CIRCLE, &DXF_GRAPHIC_RARE::m_dExtrusionY>),
    CIRCLE_FIELDS::Function(230, StoreRare<CIRCLE, &DXF_GRAPHIC_RARE::m_dExtrusionZ>),
});

// 39 is missing: an ellipse's thickness is reported as an unknown code (quirk 74).
using ELLIPSE = DXF_GRAPHIC_ELLIPSE;
using ELLIPSE_FIELDS = DxfFields<ELLIPSE>;
constexpr auto kEllipseFields = ELLIPSE_FIELDS::Table({
    ELLIPSE_FIELDS::End(0),
    ELLIPSE_FIELDS::Field(10, &ELLIPSE::m_dCenterX),
    ELLIPSE_FIELDS::Field(20, &ELLIPSE::m_dCenterY),
    ELLIPSE_FIELDS::Field(30, &ELLIPSE::m_dCenterZ),
    ELLIPSE_FIELDS::Field(11, &ELLIPSE::m_dMajorAxisX),
    ELLIPSE_FIELDS::Field(21, &ELLIPSE::m_dMajorAxisY),
    ELLIPSE_FIELDS::Field(31, &ELLIPSE::m_dMajorAxisZ),
    ELLIPSE_FIELDS::Function(210, StoreRare<ELLIPSE, &DXF_GRAPHIC_RARE::m_dExtrusionX>),
    ELLIPSE_FIELDS::Function(220, StoreRare<ELLIPSE, &DXF_GRAPHIC_RARE::m_dExtrusionY>),
    ELLIPSE_FIELDS::Function(230, StoreRare<ELLIPSE, &DXF_GRAPHIC_RARE::m_dExtrusionZ>),
    ELLIPSE_FIELDS::Field(40, &ELLIPSE::m_dRatio),
    ELLIPSE_FIELDS::Field(41, &ELLIPSE::m_dStartParam),
    ELLIPSE_FIELDS::Field(42, &ELLIPSE::m_dEndParam),
});

// 10 and 20 are the reader's own.
using POLYLINE = DXF_GRAPHIC_LWPOLYLINE;
using POLYLINE_FIELDS = DxfFields<POLYLINE>;
constexpr auto kPolylineFields = POLYLINE_FIELDS::Table({
    POLYLINE_FIELDS::End(0),
    POLYLINE_FIELDS::Field(90, &POLYLINE::m_nVertexCount),
    POLYLINE_FIELDS::Field(70, &POLYLINE::m_nFlags),
    POLYLINE_FIELDS::Field(43, &POLYLINE::m_dConstantWidth),
    POLYLINE_FIELDS::Field(38, &POLYLINE::m_dElevation),
    POLYLINE_FIELDS::Function(39, StoreRare<POLYLINE, &DXF_GRAPHIC_RARE::m_dThickness>),
    POLYLINE_FIELDS::Field(91, &POLYLINE::m_nVertexId),
    POLYLINE_FIELDS::Field(40, &POLYLINE::m_nStartWidth),
    POLYLINE_FIELDS::Field(41, &POLYLINE::m_nEndWidth),
    POLYLINE_FIELDS::Field(42, &POLYLINE::m_nBulge),
    POLYLINE_FIELDS::Function(210, StoreRare<POLYLINE, &DXF_GRAPHIC_RARE::m_dExtrusionX>),
    POLYLINE_FIELDS::Function(220, StoreRare<POLYLINE, &DXF_GRAPHIC_RARE::m_dExtrusionY>),
    POLYLINE_FIELDS::Function(230, StoreRare<POLYLINE, &DXF_GRAPHIC_RARE::m_dExtrusionZ>),
});

} // namespace

bool CDxfRead::ReadENTITIES_LINE(CDxfStream& stream, DXF_ENTITY_LIST& list)
{
    return ReadEntity(*this, stream, list, kLineFields,
                      L"ReadENTITIES_LINE Failed to read integer from '%s', Line:%d");
}

bool CDxfRead::ReadENTITIES_ARC(CDxfStream& stream, DXF_ENTITY_LIST& list)
{
    return ReadEntity(*this, stream, list, kArcFields,
                      L"ReadENTITIES_ARC Failed to read integer from '%s', Line:%d");
}

bool CDxfRead::ReadENTITIES_CIRCLE(CDxfStream& stream, DXF_ENTITY_LIST& list)
{
    return ReadEntity(*this, stream, list, kCircleFields,
                      L"ReadENTITIES_CIRCLE Failed to read integer from '%s', Line:%d");
}

bool CDxfRead::ReadENTITIES_ELLIPSE(CDxfStream& stream, DXF_ENTITY_LIST& list)
{
    return ReadEntity(*this, stream, list, kEllipseFields,
                      L"ReadENTITIES_ELLIPSE Failed to read integer from '%s', Line:%d");
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
        ReadFields(stream, *polyline, kPolylineFields,
                   L"ReadENTITIES_LWPOLYLINE Failed to read integer from '%s', Line:%d", other);
    polyline->m_vertices.Shrink(store);
    return end == DXF_END_ZERO;
}
