#include "support/Dimensions.h"

namespace {

#define FIELD(name)                                                                                          \
    {                                                                                                        \
#name, FieldText(record.name)                                                                        \
    }
#define POINT(name) FIELD(m_d##name##X), FIELD(m_d##name##Y), FIELD(m_d##name##Z)

FieldTexts OwnFields(const DXF_GRAPHIC_DIMENSION_Dimension& record)
{
    return {FIELD(m_strBlockName),  POINT(DefPoint),         POINT(TextMid),        FIELD(m_nDimType),
            FIELD(m_nAttachment),   FIELD(m_dLineSpacing),   FIELD(m_dMeasurement), FIELD(m_strText),
            FIELD(m_dTextRotation), FIELD(m_dHorizontalDir), POINT(Extrusion),      FIELD(m_strStyle)};
}

FieldTexts OwnFields(const DXF_GRAPHIC_DIMENSION_AlignedDimension& record)
{
    return {POINT(ClonePoint), POINT(ExtLine1), POINT(ExtLine2), FIELD(m_dRotation), FIELD(m_dOblique)};
}

FieldTexts OwnFields(const DXF_GRAPHIC_DIMENSION_ANGULAR& record)
{
    return {POINT(ExtLine1), POINT(ExtLine2), POINT(ArcPoint), POINT(DimArc)};
}

FieldTexts OwnFields(const DXF_GRAPHIC_DIMENSION_OrdinateDimension& record)
{
    return {POINT(ExtLine1), POINT(ExtLine2)};
}

FieldTexts OwnFields(const DXF_GRAPHIC_DIMENSION_CHORD& record)
{
    return {POINT(ChordPoint), FIELD(m_dLeaderLength)};
}

FieldTexts OwnFields(const DXF_GRAPHIC_DIMENSION_BASE&) // what has none
{
    return {};
}

template <class Record>
void AddFields(FieldTexts& fields, const DXF_GRAPHIC_DIMENSION_BASE& part, const char* name)
{
    if (const auto* const record = dynamic_cast<const Record*>(&part)) {
        fields.merge(OwnFields(*record));
        fields["part"] += name;
    }
}

FieldTexts Points(std::initializer_list<std::string_view> names)
{
    FieldTexts fields;
    for (const std::string_view name : names)
        for (const char axis : {'X', 'Y', 'Z'})
            fields.emplace(std::string("m_d").append(name) + axis, "0");
    return fields;
}

FieldTexts OwnDefaults(std::string_view type)
{
    if (type == "Dimension")
        return With(Points({"DefPoint", "TextMid", "Extrusion"}), {{"m_strBlockName", ""},
                                                                   {"m_nDimType", "0"},
                                                                   {"m_nAttachment", "-1"},
                                                                   {"m_dLineSpacing", "0"},
                                                                   {"m_dMeasurement", "0"},
                                                                   {"m_strText", ""},
                                                                   {"m_dTextRotation", "0"},
                                                                   {"m_dHorizontalDir", "0"},
                                                                   {"m_dExtrusionZ", "1"},
                                                                   {"m_strStyle", ""}});
    if (type == "AlignedDimension")
        return With(Points({"ClonePoint", "ExtLine1", "ExtLine2"}),
                    {{"m_dRotation", "0"}, {"m_dOblique", "0"}});
    if (type == "3PointAngularDimension" || type == "2LineAngularDimension")
        return Points({"ExtLine1", "ExtLine2", "ArcPoint", "DimArc"});
    if (type == "OrdinateDimension")
        return Points({"ExtLine1", "ExtLine2"});
    if (type == "RadialDimension" || type == "DiametricDimension")
        return With(Points({"ChordPoint"}), {{"m_dLeaderLength", "0"}});
    return {};
}

} // namespace

FieldTexts FieldMapOf(const DXF_GRAPHIC_DIMENSION_BASE& part)
{
    FieldTexts fields{{"m_nPartKind", FieldText(part.m_nPartKind)}, {"part", ""}};
    AddFields<DXF_GRAPHIC_DIMENSION_Entity>(fields, part, "Entity");
    AddFields<DXF_GRAPHIC_DIMENSION_Dimension>(fields, part, "Dimension");
    AddFields<DXF_GRAPHIC_DIMENSION_AlignedDimension>(fields, part, "AlignedDimension");
    AddFields<DXF_GRAPHIC_DIMENSION_3PointAngularDimension>(fields, part, "3PointAngularDimension");
    AddFields<DXF_GRAPHIC_DIMENSION_RotatedDimension>(fields, part, "RotatedDimension");
    AddFields<DXF_GRAPHIC_DIMENSION_OrdinateDimension>(fields, part, "OrdinateDimension");
    AddFields<DXF_GRAPHIC_DIMENSION_RadialDimension>(fields, part, "RadialDimension");
    AddFields<DXF_GRAPHIC_DIMENSION_DiametricDimension>(fields, part, "DiametricDimension");
    AddFields<DXF_GRAPHIC_DIMENSION_2LineAngularDimension>(fields, part, "2LineAngularDimension");
    return fields;
}

std::vector<FieldTexts> PartsOf(const DXF_GRAPHIC_DIMENSION& dimension)
{
    std::vector<FieldTexts> parts;
    for (const DXF_GRAPHIC_DIMENSION_BASE* part : dimension.m_parts)
        parts.push_back(FieldMapOf(*part));
    return parts;
}

FieldTexts PartDefaults(std::string_view marker)
{
    static const std::map<std::string_view, const char*> kKinds = {
        {"Entity", "1"},           {"Dimension", "2"},          {"AlignedDimension", "3"},
        {"RotatedDimension", "5"}, {"OrdinateDimension", "6"},  {"3PointAngularDimension", "4"},
        {"RadialDimension", "7"},  {"DiametricDimension", "8"}, {"2LineAngularDimension", "9"}};
    const std::string_view type = marker.substr(std::string_view("AcDb").size());
    return With(OwnDefaults(type), {{"part", std::string(type)}, {"m_nPartKind", kKinds.at(type)}});
}

std::string Part(std::string_view marker, std::initializer_list<std::string_view> groups)
{
    return Lines({"100", marker}) + Lines(groups);
}

std::string DimensionDrawing(const std::string& parts)
{
    return Section("ENTITIES", Lines({"0", "DIMENSION"}) + parts) + Lines({"0", "EOF"});
}
