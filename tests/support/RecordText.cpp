#include "support/RecordText.h"

#include "entities/DXF_GRAPHIC_DIMENSION.h"
#include "entities/DXF_GRAPHIC_GEOMETRY.h"
#include "entities/DXF_GRAPHIC_INSERT.h"
#include "entities/DXF_GRAPHIC_TEXT.h"
#include "reader/DXF_TABLES.h"
#include "support/RecordingHost.h"

#include <charconv>
#include <utility>
#include <vector>

namespace {

template <class Value>
std::string TextOf(Value value)
{
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof(digits), value).ptr};
}

std::string Quoted(std::wstring_view text)
{
    return '"' + ToTraceText(text) + '"';
}

std::string TextOf(DXF_STRING text)
{
    return Quoted(text);
}

std::string TextOf(const DXF_HANDLE& handle)
{
    return Quoted(handle.Wide());
}

std::string TextOf(const DXF_LIST<DXF_POINT2D>& points)
{
    std::string text;
    for (const DXF_POINT2D& point : points)
        text += "(" + TextOf(point.x) + "," + TextOf(point.y) + ")";
    return text;
}

std::string TextOf(const DXF_LIST<double>& values)
{
    std::string text;
    for (const double value : values)
        text += "(" + TextOf(value) + ")";
    return text;
}

template <class Record>
std::string TextOf(const DXF_LIST<Record*>& records)
{
    return TextOf(records.size());
}

// The fields of one record as they are listed, each with its value.
class Fields {
public:
    template <class Value>
    Fields& Add(const char* name, const Value& value)
    {
        m_lines.push_back(name + ("=" + TextOf(value)));
        return *this;
    }

    std::string Text() const
    {
        std::string text;
        for (const std::string& line : m_lines)
            text += line + '\n';
        return text;
    }

    std::string Without(const Fields& others) const
    {
        std::string text;
        for (std::size_t i = 0; i < m_lines.size(); ++i)
            if (m_lines[i] != others.m_lines.at(i))
                text += (text.empty() ? "" : " ") + m_lines[i];
        return text;
    }

private:
    std::vector<std::string> m_lines;
};

// FIELD(m_dRadius) lists a member of the record at hand under its name.
#define FIELD(member) Add(#member, record.member)
#define RARE(member) Add(#member, record.m_rare->member)

Fields BaseFields(const DXF_GRAPHIC_BASE& record)
{
    return Fields()
        .FIELD(m_strHandle)
        .RARE(m_strAppData)
        .FIELD(m_strOwnerHandle)
        .FIELD(m_strSubclass)
        .RARE(m_nPaperSpace)
        .RARE(m_strLayout)
        .FIELD(m_strLayer)
        .FIELD(m_strLineType)
        .RARE(m_strMaterial)
        .FIELD(m_nColor)
        .FIELD(m_nLineWeight)
        .RARE(m_dLineTypeScale)
        .FIELD(m_nVisibility)
        .RARE(m_nProxyByteCount)
        .RARE(m_strProxyData)
        .FIELD(m_nTrueColor)
        .RARE(m_strColorName)
        .RARE(m_strTransparency)
        .RARE(m_strPlotStyle)
        .RARE(m_nShadowMode)
        .FIELD(m_nEntityType);
}

template <class Record>
Fields& AddExtrusion(Fields& fields, const Record& record)
{
    return fields.RARE(m_dExtrusionX).RARE(m_dExtrusionY).RARE(m_dExtrusionZ);
}

template <class Record>
Fields& AddCenter(Fields& fields, const Record& record)
{
    return fields.RARE(m_dThickness).FIELD(m_dCenterX).FIELD(m_dCenterY).FIELD(m_dCenterZ);
}

template <class Record>
Fields& AddInsert(Fields& fields, const Record& record)
{
    return fields.FIELD(m_dInsertX).FIELD(m_dInsertY).FIELD(m_dInsertZ);
}

void AddOwn(Fields& fields, const DXF_GRAPHIC_LINE& record)
{
    fields.RARE(m_dThickness).FIELD(m_dStartX).FIELD(m_dStartY).FIELD(m_dStartZ);
    fields.FIELD(m_dEndX).FIELD(m_dEndY).FIELD(m_dEndZ);
    AddExtrusion(fields, record);
}

void AddOwn(Fields& fields, const DXF_GRAPHIC_ARC& record)
{
    AddCenter(fields, record).FIELD(m_dRadius).FIELD(m_dStartAngle).FIELD(m_dEndAngle);
    AddExtrusion(fields, record);
}

void AddOwn(Fields& fields, const DXF_GRAPHIC_CIRCLE& record)
{
    AddCenter(fields, record).FIELD(m_dRadius);
    AddExtrusion(fields, record);
}

void AddOwn(Fields& fields, const DXF_GRAPHIC_ELLIPSE& record)
{
    AddCenter(fields, record).FIELD(m_dMajorAxisX).FIELD(m_dMajorAxisY).FIELD(m_dMajorAxisZ);
    AddExtrusion(fields, record).FIELD(m_dRatio).FIELD(m_dStartParam).FIELD(m_dEndParam);
}

void AddOwn(Fields& fields, const DXF_GRAPHIC_LWPOLYLINE& record)
{
    fields.FIELD(m_nVertexCount).FIELD(m_nFlags).FIELD(m_dConstantWidth).FIELD(m_dElevation);
    fields.RARE(m_dThickness).FIELD(m_vertices).FIELD(m_nVertexId);
    fields.FIELD(m_nStartWidth).FIELD(m_nEndWidth).FIELD(m_nBulge);
    AddExtrusion(fields, record);
}

void AddOwn(Fields& fields, const DXF_GRAPHIC_TEXT& record)
{
    AddInsert(fields.RARE(m_dThickness), record).FIELD(m_dHeight).FIELD(m_strText).FIELD(m_dRotation);
    fields.FIELD(m_dScaleX).FIELD(m_dOblique).FIELD(m_strStyle);
    fields.FIELD(m_nGenerationFlags).FIELD(m_nHorzAlign);
    fields.FIELD(m_dAlignX).FIELD(m_dAlignY).FIELD(m_dAlignZ);
    AddExtrusion(fields, record).FIELD(m_nVertAlign);
}

void AddOwn(Fields& fields, const DXF_GRAPHIC_MTEXT& record)
{
    AddInsert(fields, record).FIELD(m_dHeight).FIELD(m_dRefWidth);
    fields.FIELD(m_nAttachment).FIELD(m_nDrawingDirection);
    fields.FIELD(m_strText).FIELD(m_strTextMore).FIELD(m_strStyle);
    AddExtrusion(fields, record).FIELD(m_dDirX).FIELD(m_dDirY).FIELD(m_dDirZ);
    fields.FIELD(m_dCharWidth).FIELD(m_dRectHeight).FIELD(m_dRotation);
    fields.FIELD(m_nLineSpacingStyle).FIELD(m_dLineSpacing);
    fields.FIELD(m_nBackgroundFill).FIELD(m_nBackgroundTrueColor).FIELD(m_nBackgroundColor);
    fields.FIELD(m_dBackgroundTransparency).FIELD(m_nColumnType).FIELD(m_nColumnCount);
    fields.FIELD(m_nColumnFlowReversed).FIELD(m_dColumnAutoHeight);
    fields.FIELD(m_dColumnWidth).FIELD(m_dColumnGutter);
}

void AddOwn(Fields& fields, const DXF_GRAPHIC_INSERT& record)
{
    AddInsert(fields.FIELD(m_nAttributesFollow).FIELD(m_strBlockName), record);
    fields.FIELD(m_dScaleX).FIELD(m_dScaleY).FIELD(m_dScaleZ).FIELD(m_dRotation);
    fields.FIELD(m_nColumnCount).FIELD(m_nRowCount).FIELD(m_nColumnSpacing).FIELD(m_nRowSpacing);
    AddExtrusion(fields, record);
}

void AddOwn(Fields& fields, const DXF_GRAPHIC_DIMENSION& record)
{
    fields.FIELD(m_parts);
}

void AddOwn(Fields&, const DXF_GRAPHIC_BASE&) {}

// Calls with(record) with the record as what its kind says it is.
template <class Function>
auto AsItsKind(const DXF_GRAPHIC_BASE& record, const Function& with)
{
    switch (record.m_nEntityType) {
    case DXF_ENTITY_LINE:
        return with(static_cast<const DXF_GRAPHIC_LINE&>(record));
    case DXF_ENTITY_ARC:
        return with(static_cast<const DXF_GRAPHIC_ARC&>(record));
    case DXF_ENTITY_CIRCLE:
        return with(static_cast<const DXF_GRAPHIC_CIRCLE&>(record));
    case DXF_ENTITY_ELLIPSE:
        return with(static_cast<const DXF_GRAPHIC_ELLIPSE&>(record));
    case DXF_ENTITY_LWPOLYLINE:
        return with(static_cast<const DXF_GRAPHIC_LWPOLYLINE&>(record));
    case DXF_ENTITY_TEXT:
        return with(static_cast<const DXF_GRAPHIC_TEXT&>(record));
    case DXF_ENTITY_MTEXT:
        return with(static_cast<const DXF_GRAPHIC_MTEXT&>(record));
    case DXF_ENTITY_INSERT:
        return with(static_cast<const DXF_GRAPHIC_INSERT&>(record));
    case DXF_ENTITY_DIMENSION:
        return with(static_cast<const DXF_GRAPHIC_DIMENSION&>(record));
    default:
        return with(record);
    }
}

template <class Record>
Fields AllFields(const Record& record)
{
    Fields fields = BaseFields(record);
    AddOwn(fields, record);
    return fields;
}

Fields EntryFields(const DXF_TABLES_COMMON& record)
{
    return Fields()
        .FIELD(m_nTableKind)
        .FIELD(m_strHandle)
        .FIELD(m_strDimStyleHandle)
        .FIELD(m_strAppData)
        .FIELD(m_strOwnerHandle)
        .FIELD(m_strSpare)
        .FIELD(m_strFirstSubclass);
}

Fields AllFields(const DXF_TABLES_LAYER& record)
{
    return EntryFields(record)
        .FIELD(m_strSubclass)
        .FIELD(m_strName)
        .FIELD(m_nFlags)
        .FIELD(m_nColor)
        .FIELD(m_strLineType)
        .FIELD(m_nPlotting)
        .FIELD(m_nLineWeight)
        .FIELD(m_strPlotStyle)
        .FIELD(m_strMaterial);
}

Fields AllFields(const DXF_TABLES_LTYPE& record)
{
    return EntryFields(record)
        .FIELD(m_strSubclass)
        .FIELD(m_strName)
        .FIELD(m_nFlags)
        .FIELD(m_strDescription)
        .FIELD(m_nAlignment)
        .FIELD(m_nDashCount)
        .FIELD(m_dPatternLength)
        .FIELD(m_dashes);
}

Fields AllFields(const DXF_TABLES_BLOCK_RECORD& record)
{
    return EntryFields(record)
        .FIELD(m_strSubclass)
        .FIELD(m_strName)
        .FIELD(m_strLayout)
        .FIELD(m_strInsertUnits)
        .FIELD(m_strExplodability)
        .FIELD(m_strScalability)
        .FIELD(m_strLineWeight)
        .FIELD(m_strXDataApplication)
        .FIELD(m_strXDataString)
        .FIELD(m_strXData);
}

Fields AllFields(const DXF_TABLES_COMMON& record)
{
    return EntryFields(record);
}

Fields AllFields(const DXF_TABLES_HEADER& record)
{
    return Fields()
        .FIELD(m_strName)
        .FIELD(m_strHandle)
        .FIELD(m_strAppData)
        .FIELD(m_strOwnerHandle)
        .FIELD(m_strSubclass)
        .FIELD(m_nMaxEntries)
        .FIELD(m_entries);
}

#undef FIELD
#undef RARE

template <class Function>
auto AsItsKind(const DXF_TABLES_COMMON& entry, const Function& with)
{
    switch (entry.m_nTableKind) {
    case DXF_TABLES_KIND_LAYER:
        return with(static_cast<const DXF_TABLES_LAYER&>(entry));
    case DXF_TABLES_KIND_LTYPE:
        return with(static_cast<const DXF_TABLES_LTYPE&>(entry));
    case DXF_TABLES_KIND_BLOCK_RECORD:
        return with(static_cast<const DXF_TABLES_BLOCK_RECORD&>(entry));
    default:
        return with(entry);
    }
}

template <class Record>
std::string Changed(const Record& record)
{
    return AllFields(record).Without(AllFields(Record()));
}

} // namespace

std::string RecordText(const DXF_GRAPHIC_BASE& record)
{
    return AsItsKind(record, [](const auto& its) { return AllFields(its).Text(); });
}

std::string RecordText(const DXF_TABLES_COMMON& entry)
{
    return AsItsKind(entry, [](const auto& its) { return AllFields(its).Text(); });
}

std::string RecordText(const DXF_TABLES_HEADER& table)
{
    return AllFields(table).Text();
}

std::string ChangedFields(const DXF_GRAPHIC_BASE& record)
{
    return AsItsKind(record, [](const auto& its) { return Changed(its); });
}

std::string ChangedFields(const DXF_TABLES_COMMON& entry)
{
    return AsItsKind(entry, [](const auto& its) { return Changed(its); });
}

std::string ChangedFields(const DXF_TABLES_HEADER& table)
{
    return Changed(table);
}
