#include "support/Dimensions.h"

#include <map>

namespace {

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

std::string Part(std::string_view marker, std::initializer_list<Group> groups)
{
    return Dxf({{100, marker}}) + Dxf(groups);
}

std::string DimensionDrawing(const std::string& parts)
{
    return Section("ENTITIES", Dxf({{0, "DIMENSION"}}) + parts) + Dxf({{0, "EOF"}});
}
