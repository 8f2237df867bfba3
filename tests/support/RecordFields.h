// The one list of the fields of every record. Code that writes records out or models them uses it.
#pragma once

#include "dimension/DXF_GRAPHIC_DIMENSION_PARTS.h"
#include "entities/DXF_BLOCKS_BLOCK.h"
#include "entities/DXF_GRAPHIC_DIMENSION.h"
#include "entities/DXF_GRAPHIC_GEOMETRY.h"
#include "entities/DXF_GRAPHIC_INSERT.h"
#include "entities/DXF_GRAPHIC_TEXT.h"
#include "reader/DXF_TABLES.h"

#include <type_traits>

// VisitFields(record, visit) calls visit("m_dRadius", record.m_dRadius) for each field in the order of the
// record, first for the fields that it shares with others. The record's static type decides which they are.
// A block's entities are no field of it.

// Whether a field is a text.
template <class Value>
inline constexpr bool kIsText = std::is_same_v<Value, DXF_STRING> || std::is_same_v<Value, DXF_HANDLE>;

// A record without a list here must not pass for its base.
template <class Record, class Visit>
void VisitFields(const Record& record, const Visit& visit) = delete;

#define FIELD(member) visit(#member, record.member)
#define RARE(member) visit(#member, record.m_rare->member)
#define POINT(start) (FIELD(start##X), FIELD(start##Y), FIELD(start##Z))
#define EXTRUSION() (RARE(m_dExtrusionX), RARE(m_dExtrusionY), RARE(m_dExtrusionZ))
// A record that adds no field to those of its base.
#define FIELDS_OF_BASE(Record, Base)                                                                         \
    template <class Visit>                                                                                   \
    void VisitFields(const Record& record, const Visit& visit)                                               \
    {                                                                                                        \
        VisitFields(static_cast<const Base&>(record), visit);                                                \
    }

// Entities.

template <class Visit>
void VisitFields(const DXF_GRAPHIC_BASE& record, const Visit& visit)
{
    FIELD(m_strHandle);
    RARE(m_strAppData);
    FIELD(m_strOwnerHandle);
    FIELD(m_strSubclass);
    RARE(m_nPaperSpace);
    RARE(m_strLayout);
    FIELD(m_strLayer);
    FIELD(m_strLineType);
    RARE(m_strMaterial);
    FIELD(m_nColor);
    FIELD(m_nLineWeight);
    RARE(m_dLineTypeScale);
    FIELD(m_nVisibility);
    RARE(m_nProxyByteCount);
    RARE(m_strProxyData);
    FIELD(m_nTrueColor);
    RARE(m_strColorName);
    RARE(m_strTransparency);
    RARE(m_strPlotStyle);
    RARE(m_nShadowMode);
    FIELD(m_nEntityType);
}

template <class Visit>
void VisitShared(const DXF_GRAPHIC_BASE& record, const Visit& visit)
{
    VisitFields(record, visit);
}

template <class Visit>
void VisitFields(const DXF_GRAPHIC_LINE& record, const Visit& visit)
{
    VisitShared(record, visit);
    RARE(m_dThickness);
    POINT(m_dStart);
    POINT(m_dEnd);
    EXTRUSION();
}

template <class Visit>
void VisitFields(const DXF_GRAPHIC_ARC& record, const Visit& visit)
{
    VisitShared(record, visit);
    RARE(m_dThickness);
    POINT(m_dCenter);
    FIELD(m_dRadius);
    FIELD(m_dStartAngle);
    FIELD(m_dEndAngle);
    EXTRUSION();
}

template <class Visit>
void VisitFields(const DXF_GRAPHIC_CIRCLE& record, const Visit& visit)
{
    VisitShared(record, visit);
    RARE(m_dThickness);
    POINT(m_dCenter);
    FIELD(m_dRadius);
    EXTRUSION();
}

template <class Visit>
void VisitFields(const DXF_GRAPHIC_ELLIPSE& record, const Visit& visit)
{
    VisitShared(record, visit);
    RARE(m_dThickness);
    POINT(m_dCenter);
    POINT(m_dMajorAxis);
    EXTRUSION();
    FIELD(m_dRatio);
    FIELD(m_dStartParam);
    FIELD(m_dEndParam);
}

template <class Visit>
void VisitFields(const DXF_GRAPHIC_LWPOLYLINE& record, const Visit& visit)
{
    VisitShared(record, visit);
    FIELD(m_nVertexCount);
    FIELD(m_nFlags);
    FIELD(m_dConstantWidth);
    FIELD(m_dElevation);
    RARE(m_dThickness);
    FIELD(m_vertices);
    FIELD(m_nVertexId);
    FIELD(m_nStartWidth);
    FIELD(m_nEndWidth);
    FIELD(m_nBulge);
    EXTRUSION();
}

template <class Visit>
void VisitFields(const DXF_GRAPHIC_TEXT& record, const Visit& visit)
{
    VisitShared(record, visit);
    RARE(m_dThickness);
    POINT(m_dInsert);
    FIELD(m_dHeight);
    FIELD(m_strText);
    FIELD(m_dRotation);
    FIELD(m_dScaleX);
    FIELD(m_dOblique);
    FIELD(m_strStyle);
    FIELD(m_nGenerationFlags);
    FIELD(m_nHorzAlign);
    POINT(m_dAlign);
    EXTRUSION();
    FIELD(m_nVertAlign);
}

template <class Visit>
void VisitFields(const DXF_GRAPHIC_MTEXT& record, const Visit& visit)
{
    VisitShared(record, visit);
    POINT(m_dInsert);
    FIELD(m_dHeight);
    FIELD(m_dRefWidth);
    FIELD(m_nAttachment);
    FIELD(m_nDrawingDirection);
    FIELD(m_strText);
    FIELD(m_strTextMore);
    FIELD(m_strStyle);
    EXTRUSION();
    POINT(m_dDir);
    FIELD(m_dCharWidth);
    FIELD(m_dRectHeight);
    FIELD(m_dRotation);
    FIELD(m_nLineSpacingStyle);
    FIELD(m_dLineSpacing);
    FIELD(m_nBackgroundFill);
    FIELD(m_nBackgroundTrueColor);
    FIELD(m_nBackgroundColor);
    FIELD(m_dBackgroundTransparency);
    FIELD(m_nColumnType);
    FIELD(m_nColumnCount);
    FIELD(m_nColumnFlowReversed);
    FIELD(m_dColumnAutoHeight);
    FIELD(m_dColumnWidth);
    FIELD(m_dColumnGutter);
}

template <class Visit>
void VisitFields(const DXF_GRAPHIC_INSERT& record, const Visit& visit)
{
    VisitShared(record, visit);
    FIELD(m_nAttributesFollow);
    FIELD(m_strBlockName);
    POINT(m_dInsert);
    POINT(m_dScale);
    FIELD(m_dRotation);
    FIELD(m_nColumnCount);
    FIELD(m_nRowCount);
    FIELD(m_nColumnSpacing);
    FIELD(m_nRowSpacing);
    EXTRUSION();
}

template <class Visit>
void VisitFields(const DXF_GRAPHIC_DIMENSION& record, const Visit& visit)
{
    VisitShared(record, visit);
    FIELD(m_parts);
}

// The parts of a dimension.

template <class Visit>
void VisitFields(const DXF_GRAPHIC_DIMENSION_BASE& record, const Visit& visit)
{
    FIELD(m_nPartKind);
}

FIELDS_OF_BASE(DXF_GRAPHIC_DIMENSION_Entity, DXF_GRAPHIC_DIMENSION_BASE)
FIELDS_OF_BASE(DXF_GRAPHIC_DIMENSION_RotatedDimension, DXF_GRAPHIC_DIMENSION_BASE)

template <class Visit>
void VisitFields(const DXF_GRAPHIC_DIMENSION_Dimension& record, const Visit& visit)
{
    FIELD(m_nPartKind);
    FIELD(m_strBlockName);
    POINT(m_dDefPoint);
    POINT(m_dTextMid);
    FIELD(m_nDimType);
    FIELD(m_nAttachment);
    FIELD(m_dLineSpacing);
    FIELD(m_dMeasurement);
    FIELD(m_strText);
    FIELD(m_dTextRotation);
    FIELD(m_dHorizontalDir);
    POINT(m_dExtrusion);
    FIELD(m_strStyle);
}

template <class Visit>
void VisitFields(const DXF_GRAPHIC_DIMENSION_AlignedDimension& record, const Visit& visit)
{
    FIELD(m_nPartKind);
    POINT(m_dClonePoint);
    POINT(m_dExtLine1);
    POINT(m_dExtLine2);
    FIELD(m_dRotation);
    FIELD(m_dOblique);
}

template <class Visit>
void VisitFields(const DXF_GRAPHIC_DIMENSION_ANGULAR& record, const Visit& visit)
{
    FIELD(m_nPartKind);
    POINT(m_dExtLine1);
    POINT(m_dExtLine2);
    POINT(m_dArcPoint);
    POINT(m_dDimArc);
}

FIELDS_OF_BASE(DXF_GRAPHIC_DIMENSION_3PointAngularDimension, DXF_GRAPHIC_DIMENSION_ANGULAR)
FIELDS_OF_BASE(DXF_GRAPHIC_DIMENSION_2LineAngularDimension, DXF_GRAPHIC_DIMENSION_ANGULAR)

template <class Visit>
void VisitFields(const DXF_GRAPHIC_DIMENSION_OrdinateDimension& record, const Visit& visit)
{
    FIELD(m_nPartKind);
    POINT(m_dExtLine1);
    POINT(m_dExtLine2);
}

template <class Visit>
void VisitFields(const DXF_GRAPHIC_DIMENSION_CHORD& record, const Visit& visit)
{
    FIELD(m_nPartKind);
    POINT(m_dChordPoint);
    FIELD(m_dLeaderLength);
}

FIELDS_OF_BASE(DXF_GRAPHIC_DIMENSION_RadialDimension, DXF_GRAPHIC_DIMENSION_CHORD)
FIELDS_OF_BASE(DXF_GRAPHIC_DIMENSION_DiametricDimension, DXF_GRAPHIC_DIMENSION_CHORD)

// Blocks.

template <class Visit>
void VisitFields(const DXF_BLOCKS_BLOCK& record, const Visit& visit)
{
    FIELD(m_nObjectType);
    FIELD(m_strHandle);
    FIELD(m_strAppData);
    FIELD(m_strOwnerHandle);
    FIELD(m_strSubclass);
    FIELD(m_strLayer);
    FIELD(m_strName);
    FIELD(m_nFlags);
    POINT(m_dBase);
    FIELD(m_strName3);
    FIELD(m_strXrefPath);
    FIELD(m_strDescription);
}

// Tables and their entries.

template <class Visit>
void VisitFields(const DXF_TABLES_HEADER& record, const Visit& visit)
{
    FIELD(m_strName);
    FIELD(m_strHandle);
    FIELD(m_strAppData);
    FIELD(m_strOwnerHandle);
    FIELD(m_strSubclass);
    FIELD(m_nMaxEntries);
    FIELD(m_entries);
}

template <class Visit>
void VisitFields(const DXF_TABLES_COMMON& record, const Visit& visit)
{
    FIELD(m_nTableKind);
    FIELD(m_strHandle);
    FIELD(m_strDimStyleHandle);
    FIELD(m_strAppData);
    FIELD(m_strOwnerHandle);
    FIELD(m_strSpare);
    FIELD(m_strFirstSubclass);
}

template <class Visit>
void VisitShared(const DXF_TABLES_COMMON& record, const Visit& visit)
{
    VisitFields(record, visit);
}

template <class Visit>
void VisitFields(const DXF_TABLES_LAYER& record, const Visit& visit)
{
    VisitShared(record, visit);
    FIELD(m_strSubclass);
    FIELD(m_strName);
    FIELD(m_nFlags);
    FIELD(m_nColor);
    FIELD(m_strLineType);
    FIELD(m_nPlotting);
    FIELD(m_nLineWeight);
    FIELD(m_strPlotStyle);
    FIELD(m_strMaterial);
}

template <class Visit>
void VisitFields(const DXF_TABLES_LTYPE& record, const Visit& visit)
{
    VisitShared(record, visit);
    FIELD(m_strSubclass);
    FIELD(m_strName);
    FIELD(m_nFlags);
    FIELD(m_strDescription);
    FIELD(m_nAlignment);
    FIELD(m_nDashCount);
    FIELD(m_dPatternLength);
    FIELD(m_dashes);
}

template <class Visit>
void VisitFields(const DXF_TABLES_BLOCK_RECORD& record, const Visit& visit)
{
    VisitShared(record, visit);
    FIELD(m_strSubclass);
    FIELD(m_strName);
    FIELD(m_strLayout);
    FIELD(m_strInsertUnits);
    FIELD(m_strExplodability);
    FIELD(m_strScalability);
    FIELD(m_strLineWeight);
    FIELD(m_strXDataApplication);
    FIELD(m_strXDataString);
    FIELD(m_strXData);
}

#undef FIELD
#undef RARE
#undef POINT
#undef EXTRUSION
#undef FIELDS_OF_BASE
