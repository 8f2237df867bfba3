#include "support/RecordText.h"

#include "reader/EntityTypes.h"
#include "support/ModelTexts.h"
#include "support/RecordFields.h"
#include "support/RecordingHost.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace {

struct FieldText {
    std::string name;
    std::string text;
    bool isText;
    bool isRecords;
};

using Fields = std::vector<FieldText>;

template <class Number>
std::string TextOf(Number number)
{
    return TextOfNumber(number);
}

std::string TextOf(DXF_STRING text)
{
    return ToTraceText(text);
}

std::string TextOf(const DXF_HANDLE& handle)
{
    return ToTraceText(handle.Wide());
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

template <class Value>
inline constexpr bool kIsRecords = false;
template <class Record>
inline constexpr bool kIsRecords<DXF_LIST<Record*>> = true;

template <class Record>
Fields FieldsOf(const Record& record)
{
    Fields fields;
    VisitFields(record, [&]<class Value>(const char* name, const Value& value) {
        fields.push_back({name, TextOf(value), kIsText<Value>, kIsRecords<Value>});
    });
    return fields;
}

// Calls with(record) with the record as what its kind says it is.
template <class Function>
auto AsItsKind(const DXF_GRAPHIC_BASE& record, const Function& with)
{
    switch (record.m_nEntityType) {
#define WITH_ITS_KIND(number, TYPE, Callback, constness)                                                     \
    case DXF_ENTITY_##TYPE:                                                                                  \
        return with(static_cast<const DXF_GRAPHIC_##TYPE&>(record));
        DXF_DRAWN_TYPES(WITH_ITS_KIND)
#undef WITH_ITS_KIND
    default:
        return with(record);
    }
}

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

template <class Function>
auto AsItsKind(const DXF_TABLES_HEADER& table, const Function& with)
{
    return with(table);
}

std::string LineOf(const FieldText& field)
{
    const char* const quote = field.isText ? "\"" : "";
    return field.name + "=" + quote + field.text + quote;
}

template <class Record>
std::string Text(const Record& record)
{
    std::string text;
    for (const FieldText& field : AsItsKind(record, [](const auto& its) { return FieldsOf(its); }))
        text += LineOf(field) + '\n';
    return text;
}

template <class Record>
std::string ChangedFrom(const Record& record, const Record& made)
{
    const Fields fields = FieldsOf(record);
    const Fields others = FieldsOf(made);
    std::string text;
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (fields[i].text != others[i].text)
            text += (text.empty() ? "" : " ") + LineOf(fields[i]);
    return text;
}

template <class Record>
std::string Changed(const Record& record)
{
    return AsItsKind(record, []<class Kind>(const Kind& its) { return ChangedFrom(its, Kind()); });
}

FieldTexts MapOf(const Fields& fields)
{
    FieldTexts map;
    for (const FieldText& field : fields)
        if (!field.isRecords)
            map.emplace(field.name, field.text);
    return map;
}

// Adds the part's fields, and the name of the record that it is, if it is one of these.
template <class Record>
void AddPart(FieldTexts& map, const DXF_GRAPHIC_DIMENSION_BASE& part, std::string_view name)
{
    if (const auto* const record = dynamic_cast<const Record*>(&part)) {
        map.merge(MapOf(FieldsOf(*record)));
        map["part"] += name;
    }
}

} // namespace

std::string RecordText(const DXF_GRAPHIC_BASE& record)
{
    return Text(record);
}

std::string RecordText(const DXF_TABLES_COMMON& entry)
{
    return Text(entry);
}

std::string RecordText(const DXF_TABLES_HEADER& table)
{
    return Text(table);
}

std::string ChangedFields(const DXF_GRAPHIC_BASE& record)
{
    return Changed(record);
}

std::string ChangedFields(const DXF_TABLES_COMMON& entry)
{
    return Changed(entry);
}

std::string ChangedFields(const DXF_TABLES_HEADER& table)
{
    return Changed(table);
}

FieldTexts FieldMapOf(const DXF_GRAPHIC_BASE& record)
{
    return AsItsKind(record, [](const auto& its) { return MapOf(FieldsOf(its)); });
}

FieldTexts FieldMapOf(const DXF_BLOCKS_BLOCK& block)
{
    return MapOf(FieldsOf(block));
}

FieldTexts FieldMapOf(const DXF_GRAPHIC_DIMENSION_BASE& part)
{
    FieldTexts map = MapOf(FieldsOf(part));
    map["part"] = "";
    AddPart<DXF_GRAPHIC_DIMENSION_Entity>(map, part, "Entity");
    AddPart<DXF_GRAPHIC_DIMENSION_Dimension>(map, part, "Dimension");
    AddPart<DXF_GRAPHIC_DIMENSION_AlignedDimension>(map, part, "AlignedDimension");
    AddPart<DXF_GRAPHIC_DIMENSION_3PointAngularDimension>(map, part, "3PointAngularDimension");
    AddPart<DXF_GRAPHIC_DIMENSION_RotatedDimension>(map, part, "RotatedDimension");
    AddPart<DXF_GRAPHIC_DIMENSION_OrdinateDimension>(map, part, "OrdinateDimension");
    AddPart<DXF_GRAPHIC_DIMENSION_RadialDimension>(map, part, "RadialDimension");
    AddPart<DXF_GRAPHIC_DIMENSION_DiametricDimension>(map, part, "DiametricDimension");
    AddPart<DXF_GRAPHIC_DIMENSION_2LineAngularDimension>(map, part, "2LineAngularDimension");
    return map;
}

FieldTexts With(FieldTexts defaults, std::initializer_list<FieldTexts::value_type> changed)
{
    for (const auto& [name, text] : changed)
        defaults[name] = text;
    return defaults;
}
