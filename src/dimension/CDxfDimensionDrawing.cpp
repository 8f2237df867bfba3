#include "dimension/CDxfDimensionDrawing.h"

#include "dimension/CDxfGroup.h"
#include "dimension/DXF_GRAPHIC_DIMENSION_PARTS.h"
#include "drawing/DimensionPoints.h"
#include "entities/DXF_GRAPHIC_DIMENSION.h"

namespace {

double DirectionInDegrees(const DXF_POINT2D& from, const DXF_POINT2D& to)
{
    return Direction(from, to) * 180 / kPi;
}

DXF_POINT2D DefinitionPoint(const DXF_GRAPHIC_DIMENSION_Dimension& dimension, double scale,
                            std::int32_t yAxisMode)
{
    return TransformPoint(dimension.m_dDefPointX, dimension.m_dDefPointY, scale, yAxisMode);
}

} // namespace

CDxfDimensionDrawing::CDxfDimensionDrawing(CDxfRead& reader, QlmNode parentNode, double scale,
                                           std::int32_t yAxisMode)
    : m_reader(reader), m_parentNode(parentNode), m_scale(scale), m_yAxisMode(yAxisMode)
{
    m_strokeWidth.AddFixed6(scale * 0.15);
}

void CDxfDimensionDrawing::Draw(const DXF_GRAPHIC_DIMENSION& record)
{
    const DIMENSION* dimension = nullptr; // the first (quirk 104)
    const ALIGNED* aligned = nullptr;     // the last
    for (std::size_t i = 0; i < record.m_parts.size(); ++i) {
        const DXF_GRAPHIC_DIMENSION_BASE* const part = record.m_parts[i];
        const bool isLast =
            i + 1 == record.m_parts.size(); // those that others follow are left out (quirk 102)
        switch (part->m_nPartKind) {
        case DXF_DIMENSION_PART_DIMENSION:
            if (dimension == nullptr)
                dimension = static_cast<const DIMENSION*>(part);
            else
                m_reader.OnError(0, DXF_ERROR_INTEGER, L"AcDbDimension data duplicated.", 0);
            break;
        case DXF_DIMENSION_PART_ALIGNED:
            aligned = static_cast<const ALIGNED*>(part);
            if (isLast && dimension != nullptr)
                DrawAligned(*dimension, *aligned);
            break;
        case DXF_DIMENSION_PART_ROTATED:
            if (isLast && dimension != nullptr && aligned != nullptr)
                DrawRotated(*dimension, *aligned);
            break;
        case DXF_DIMENSION_PART_RADIAL:
            if (dimension != nullptr)
                DrawRadial(*dimension, static_cast<const CHORD&>(*part));
            break;
        case DXF_DIMENSION_PART_DIAMETRIC:
            if (dimension != nullptr)
                DrawDiametric(*dimension, static_cast<const CHORD&>(*part));
            break;
        case DXF_DIMENSION_PART_2LINE_ANGULAR:
            if (dimension != nullptr)
                DrawAngular(*dimension, static_cast<const ANGULAR&>(*part));
            break;
        default: // the entity part, three-point angular and ordinate dimensions draw nothing (quirk 103)
            break;
        }
    }
}

void CDxfDimensionDrawing::DrawAligned(const DIMENSION& dimension, const ALIGNED& aligned)
{
    const DXF_POINT2D d = DefinitionPoint(dimension, m_scale, m_yAxisMode);
    const DXF_POINT2D p1 = Transform(aligned.m_dExtLine1X, aligned.m_dExtLine1Y);
    const DXF_POINT2D p2 = Transform(aligned.m_dExtLine2X, aligned.m_dExtLine2Y);
    DrawLinear(dimension, p1, p2, FootPoint(d, p1, p2));
}

void CDxfDimensionDrawing::DrawRotated(const DIMENSION& dimension, const ALIGNED& aligned)
{
    const DXF_POINT2D d = DefinitionPoint(dimension, m_scale, m_yAxisMode);
    const auto [p1, p2, foot] =
        RotatedPoints(d, Transform(aligned.m_dExtLine1X, aligned.m_dExtLine1Y),
                      Transform(aligned.m_dExtLine2X, aligned.m_dExtLine2Y), aligned.m_dRotation);
    DrawLinear(dimension, p1, p2, foot);
}

void CDxfDimensionDrawing::DrawLinear(const DIMENSION& dimension, const DXF_POINT2D& p1,
                                      const DXF_POINT2D& p2, const DXF_POINT2D& q)
{
    const DXF_POINT2D d = DefinitionPoint(dimension, m_scale, m_yAxisMode);
    const CDxfGroup group(m_parentNode);
    DrawLine(p2, d, Arrows::None);
    DrawLine(p1, q, Arrows::None);
    DrawLine(d, q, Arrows::Both);
    DrawGeneralValue(dimension, Distance(d, q), DirectionInDegrees(q, d));
}

void CDxfDimensionDrawing::DrawRadial(const DIMENSION& dimension, const CHORD& radial)
{
    const DXF_POINT2D d = DefinitionPoint(dimension, m_scale, m_yAxisMode);
    const DXF_POINT2D h = Transform(radial.m_dChordPointX, radial.m_dChordPointY);
    const DXF_POINT2D middle{(d.x + h.x) / 2, (d.y + h.y) / 2};
    const CDxfGroup group(m_parentNode);
    DrawLine(d, h, Arrows::End);
    DrawGeneralValue(dimension, 2 * Distance(middle, d), DirectionInDegrees(h, d));
}

// It shows half the distance between its points (quirk 100).
void CDxfDimensionDrawing::DrawDiametric(const DIMENSION& dimension, const CHORD& diametric)
{
    const DXF_POINT2D d = DefinitionPoint(dimension, m_scale, m_yAxisMode);
    const DXF_POINT2D h = Transform(diametric.m_dChordPointX, diametric.m_dChordPointY);
    const DXF_POINT2D middle{(d.x + h.x) / 2, (d.y + h.y) / 2};
    const CDxfGroup group(m_parentNode);
    DrawLine(d, h, Arrows::Both);
    DrawGeneralValue(dimension, Distance(middle, d), DirectionInDegrees(h, d));
}

void CDxfDimensionDrawing::DrawLine(const DXF_POINT2D& from, const DXF_POINT2D& to, Arrows arrows,
                                    const wchar_t* color)
{
    const QlmNode line = qlmCreateLine(m_parentNode, L"", ToFloat(from.x), ToFloat(from.y), ToFloat(to.x),
                                       ToFloat(to.y), 0.0f, 0.0f);
    SetAttribute(line, L"stroke-width", m_strokeWidth.c_str());
    if (arrows == Arrows::Both)
        SetAttribute(line, L"pg-begin-arrow-type", L"stealth arrow");
    if (arrows != Arrows::None)
        SetAttribute(line, L"pg-end-arrow-type", L"stealth arrow");
    if (arrows == Arrows::Both)
        SetAttribute(line, L"pg-begin-arrow-size", L"1");
    if (arrows != Arrows::None)
        SetAttribute(line, L"pg-end-arrow-size", L"1");
    if (color != nullptr)
        SetAttribute(line, L"stroke", color);
}

void CDxfDimensionDrawing::DrawMark(const DXF_POINT2D& center, const wchar_t* color)
{
    const QlmNode circle =
        qlmCreateCircle(m_parentNode, L"", 0.5f, ToFloat(center.x), ToFloat(center.y), 0.0f, 0.0f);
    SetAttribute(circle, L"stroke-width", m_strokeWidth.c_str());
    if (color != nullptr)
        SetAttribute(circle, L"stroke", color);
}
