#include "PlainRecords.h"

#include "support/RecordFields.h"

#include <string>
#include <vector>

namespace {

// The fields of a record; those that Shared has too are not its own.
template <class Record, class Shared>
PlainKind KindOf(std::string_view name)
{
    PlainKind kind(name);
    VisitFields(Shared(), [&](const char*, const auto&) { kind.AddShared(); });
    VisitFields(Record(),
                [&]<class Value>(const char* field, const Value&) { kind.AddField(field, kIsText<Value>); });
    return kind;
}

template <class Record>
PlainKind KindOf(std::string_view name = {})
{
    PlainKind kind(name);
    VisitFields(Record(),
                [&]<class Value>(const char* field, const Value&) { kind.AddField(field, kIsText<Value>); });
    return kind;
}

template <class Record>
PlainKind Entity(std::string_view name, std::string_view kind)
{
    return KindOf<Record, DXF_GRAPHIC_BASE>(name)
        .Text("m_strHandle", 5)
        .Group("m_strAppData", 102)
        .Text("m_strOwnerHandle", 330)
        .Text("m_strSubclass", 100)
        .Integer("m_nPaperSpace", 67)
        .Text("m_strLayout", 410)
        .Text("m_strLayer", 8)
        .Text("m_strLineType", 6)
        .Text("m_strMaterial", 347)
        .Integer("m_nColor", 62)
        .Integer("m_nLineWeight", 370, "-1")
        .Rule("m_dLineTypeScale", 48, 48, PlainConversion::IntegerAsReal, "1")
        .Integer("m_nVisibility", 60)
        .Integer("m_nProxyByteCount", 92)
        .Text("m_strProxyData", 310)
        .Integer("m_nTrueColor", 420)
        .Text("m_strColorName", 430)
        .Text("m_strTransparency", 440)
        .Text("m_strPlotStyle", 390)
        .Integer("m_nShadowMode", 284)
        .Constant("m_nEntityType", kind);
}

template <class Record>
PlainKind Centered(std::string_view name, std::string_view kind)
{
    return Entity<Record>(name, kind).Real("m_dThickness", 39).Point("m_dCenter", 10);
}

PlainKind Polyline()
{
    return Entity<DXF_GRAPHIC_LWPOLYLINE>("LWPOLYLINE", "5")
        .Integer("m_nVertexCount", 90)
        .Integer("m_nFlags", 70)
        .Real("m_dConstantWidth", 43)
        .Real("m_dElevation", 38)
        .Real("m_dThickness", 39)
        .Rule("m_vertices", 20, 20, PlainConversion::Vertex)
        .PendingX(10)
        .Integer("m_nVertexId", 91)
        .Integer("m_nStartWidth", 40)
        .Integer("m_nEndWidth", 41)
        .Integer("m_nBulge", 42)
        .Extrusion();
}

PlainKind Ellipse()
{
    return Entity<DXF_GRAPHIC_ELLIPSE>("ELLIPSE", "4")
        .Point("m_dCenter", 10)
        .Point("m_dMajorAxis", 11)
        .Extrusion()
        .Real("m_dRatio", 40)
        .Real("m_dStartParam", 41)
        .Real("m_dEndParam", 42);
}

PlainKind TextEntity()
{
    return Entity<DXF_GRAPHIC_TEXT>("TEXT", "6")
        .Point("m_dInsert", 10)
        .Real("m_dHeight", 40, "5")
        .RawText("m_strText", 1)
        .Real("m_dRotation", 50)
        .Real("m_dScaleX", 41, "1")
        .Real("m_dOblique", 51)
        .RawText("m_strStyle", 7)
        .Integer("m_nGenerationFlags", 71)
        .Integer("m_nHorzAlign", 72)
        .Real("m_dAlignX", 11)
        .Real("m_dAlignY", 21)
        .Real("m_dAlignZ", 33)
        .Extrusion()
        .Integer("m_nVertAlign", 73);
}

PlainKind MTextEntity()
{
    return Entity<DXF_GRAPHIC_MTEXT>("MTEXT", "7")
        .Point("m_dInsert", 10)
        .Real("m_dHeight", 40, "5")
        .Real("m_dRefWidth", 41)
        .Integer("m_nAttachment", 71, "1")
        .Integer("m_nDrawingDirection", 72)
        .RawText("m_strText", 1)
        .RawText("m_strTextMore", 3)
        .RawText("m_strStyle", 7)
        .Extrusion()
        .Point("m_dDir", 11)
        .Real("m_dCharWidth", 42)
        .Real("m_dRectHeight", 43)
        .Real("m_dRotation", 50)
        .Integer("m_nLineSpacingStyle", 73)
        .Real("m_dLineSpacing", 44, "1")
        .Integer("m_nBackgroundFill", 90)
        .Integers("m_nBackgroundTrueColor", 420, 439)
        .Integer("m_nBackgroundColor", 63)
        .Real("m_dBackgroundTransparency", 441)
        .Integer("m_nColumnType", 75)
        .Integer("m_nColumnCount", 76)
        .Integer("m_nColumnFlowReversed", 78)
        .Real("m_dColumnAutoHeight", 79)
        .Real("m_dColumnWidth", 48)
        .Real("m_dColumnGutter", 49);
}

PlainKind Insert()
{
    return Entity<DXF_GRAPHIC_INSERT>("INSERT", "8")
        .Integer("m_nAttributesFollow", 66)
        .Text("m_strBlockName", 2)
        .Point("m_dInsert", 10)
        .Real("m_dScaleX", 41, "1")
        .Real("m_dScaleY", 42, "1")
        .Real("m_dScaleZ", 43, "1")
        .Real("m_dRotation", 50)
        .Integer("m_nColumnCount", 70, "1")
        .Integer("m_nRowCount", 71, "1")
        .Integer("m_nColumnSpacing", 44)
        .Integer("m_nRowSpacing", 45)
        .Extrusion();
}

template <class Record>
PlainKind Entry(std::string_view name, std::string_view kind)
{
    return KindOf<Record, DXF_TABLES_COMMON>(name)
        .Constant("m_nTableKind", kind)
        .Text("m_strHandle", 5)
        .Text("m_strDimStyleHandle", 105)
        .Group("m_strAppData", 102)
        .Text("m_strOwnerHandle", 330)
        .Text("m_strFirstSubclass", 100)
        .Text("m_strSubclass", 100)
        .Text("m_strName", 2);
}

template <class Record>
PlainKind Part(std::string_view marker, std::string_view kind)
{
    return KindOf<Record>(marker).Constant("m_nPartKind", kind);
}

template <class Record>
PlainKind Angular(std::string_view marker, std::string_view kind)
{
    return Part<Record>(marker, kind)
        .Point("m_dExtLine1", 13)
        .Point("m_dExtLine2", 14)
        .Point("m_dArcPoint", 15)
        .Point("m_dDimArc", 16);
}

template <class Record>
PlainKind Chord(std::string_view marker, std::string_view kind)
{
    return Part<Record>(marker, kind).Point("m_dChordPoint", 15).Real("m_dLeaderLength", 40);
}

PlainKind DimensionPart()
{
    return Part<DXF_GRAPHIC_DIMENSION_Dimension>("AcDbDimension", "2")
        .Text("m_strBlockName", 2)
        .Point("m_dDefPoint", 10)
        .Point("m_dTextMid", 11)
        .Integer("m_nDimType", 70)
        .Integer("m_nAttachment", 71, "-1")
        .Real("m_dLineSpacing", 41)
        .Real("m_dMeasurement", 42)
        .Text("m_strText", 1)
        .Real("m_dTextRotation", 53)
        .Real("m_dHorizontalDir", 51)
        .Extrusion()
        .Text("m_strStyle", 3);
}

std::vector<PlainKind> EntityKinds()
{
    return {Entity<DXF_GRAPHIC_LINE>("LINE", "1")
                .Real("m_dThickness", 39)
                .Point("m_dStart", 10)
                .Point("m_dEnd", 11)
                .Extrusion(),
            Centered<DXF_GRAPHIC_ARC>("ARC", "2")
                .Real("m_dRadius", 40)
                .Real("m_dStartAngle", 50)
                .Real("m_dEndAngle", 51)
                .Extrusion(),
            Centered<DXF_GRAPHIC_CIRCLE>("CIRCLE", "3").Real("m_dRadius", 40).Extrusion(),
            Ellipse(),
            Polyline(),
            TextEntity(),
            MTextEntity(),
            Insert(),
            Entity<DXF_GRAPHIC_DIMENSION>("DIMENSION", "9")};
}

std::vector<PlainKind> EntryKinds()
{
    return {Entry<DXF_TABLES_LAYER>("LAYER", "4")
                .Integer("m_nFlags", 70)
                .Integer("m_nColor", 62)
                .Text("m_strLineType", 6)
                .Integer("m_nPlotting", 290)
                .Integer("m_nLineWeight", 370)
                .Text("m_strPlotStyle", 390)
                .Text("m_strMaterial", 347),
            Entry<DXF_TABLES_LTYPE>("LTYPE", "5")
                .Integer("m_nFlags", 70)
                .Text("m_strDescription", 3)
                .Integer("m_nAlignment", 72)
                .Integer("m_nDashCount", 73)
                .Real("m_dPatternLength", 40)
                .Rule("m_dashes", 49, 49, PlainConversion::Dash),
            Entry<DXF_TABLES_BLOCK_RECORD>("BLOCK_RECORD", "2")
                .Text("m_strLayout", 340)
                .Text("m_strInsertUnits", 70)
                .Text("m_strExplodability", 280)
                .Text("m_strScalability", 281)
                .Text("m_strLineWeight", 370)
                .Text("m_strXDataApplication", 1001)
                .Text("m_strXDataString", 1000)
                .Group("m_strXData", 1002)};
}

std::vector<PlainKind> PartKinds()
{
    return {Part<DXF_GRAPHIC_DIMENSION_Entity>("AcDbEntity", "1"),
            DimensionPart(),
            Part<DXF_GRAPHIC_DIMENSION_AlignedDimension>("AcDbAlignedDimension", "3")
                .Point("m_dClonePoint", 12)
                .Point("m_dExtLine1", 13)
                .Point("m_dExtLine2", 14)
                .Real("m_dRotation", 50)
                .Real("m_dOblique", 52),
            Angular<DXF_GRAPHIC_DIMENSION_3PointAngularDimension>("AcDb3PointAngularDimension", "4"),
            Part<DXF_GRAPHIC_DIMENSION_RotatedDimension>("AcDbRotatedDimension", "5"),
            Part<DXF_GRAPHIC_DIMENSION_OrdinateDimension>("AcDbOrdinateDimension", "6")
                .Point("m_dExtLine1", 13)
                .Point("m_dExtLine2", 14),
            Chord<DXF_GRAPHIC_DIMENSION_RadialDimension>("AcDbRadialDimension", "7"),
            Chord<DXF_GRAPHIC_DIMENSION_DiametricDimension>("AcDbDiametricDimension", "8"),
            Angular<DXF_GRAPHIC_DIMENSION_2LineAngularDimension>("AcDb2LineAngularDimension", "9")};
}

const PlainKind* FindKind(const std::vector<PlainKind>& kinds, std::string_view name)
{
    for (const PlainKind& kind : kinds)
        if (kind.Name() == name)
            return &kind;
    return nullptr;
}

} // namespace

const PlainKind* EntityKind(std::string_view typeName)
{
    static const std::vector<PlainKind> kinds = EntityKinds();
    return FindKind(kinds, typeName);
}

const PlainKind* EntryKind(std::string_view typeName)
{
    static const std::vector<PlainKind> kinds = EntryKinds();
    return FindKind(kinds, typeName);
}

const PlainKind* PartKind(std::string_view marker)
{
    static const std::vector<PlainKind> kinds = PartKinds();
    return FindKind(kinds, marker);
}

const PlainKind& TableKind()
{
    static const PlainKind kind = KindOf<DXF_TABLES_HEADER>()
                                      .Text("m_strName", 2)
                                      .Text("m_strHandle", 5)
                                      .Group("m_strAppData", 102)
                                      .Text("m_strOwnerHandle", 330)
                                      .Text("m_strSubclass", 100)
                                      .Integer("m_nMaxEntries", 70);
    return kind;
}

const PlainKind& BlockKind()
{
    static const PlainKind kind = KindOf<DXF_BLOCKS_BLOCK>()
                                      .Constant("m_nObjectType", "1")
                                      .Text("m_strHandle", 5)
                                      .Group("m_strAppData", 102)
                                      .Text("m_strOwnerHandle", 330)
                                      .Text("m_strLayer", 8)
                                      .Text("m_strName", 2)
                                      .Integer("m_nFlags", 70)
                                      .Point("m_dBase", 10)
                                      .Text("m_strName3", 3)
                                      .Text("m_strXrefPath", 1)
                                      .Text("m_strDescription", 4);
    return kind;
}

bool IsEntityName(std::string_view name)
{
    constexpr std::string_view kNames =
        ",3DFACE,3DSOLID,ACAD_PROXY_ENTITY,ARC,ATTDEF,ATTRIB,BODY,CIRCLE,DIMENSION,ELLIPSE,HATCH,"
        "HELIX,IMAGE,INSERT,LEADER,LIGHT,LINE,LWPOLYLINE,MESH,MLEADER,MLEADERSTYLE,MLINE,MTEXT,"
        "OLEFRAME,OLE2FRAME,POINT,POLYLINE,RAY,REGION,SECTION,SEQEND,SHAPE,SOLID,SPLINE,SUN,SURFACE,"
        "TABLE,TEXT,TOLERANCE,TRACE,UNDERLAY,VERTEX,VIEWPORT,WIPEOUT,XLINE,";
    return kNames.find("," + std::string(name) + ",") != std::string_view::npos &&
           name.find(',') == std::string_view::npos && !name.empty();
}
