#include "support/Fields.h"

#include <algorithm>
#include <charconv>

// A field's name and what it holds.
#define FIELD(name)                                                                                          \
    {                                                                                                        \
#name, FieldText(record.name)                                                                        \
    }

#define RARE(name)                                                                                           \
    {                                                                                                        \
#name, FieldText(record.m_rare->name)                                                                \
    }

std::string FieldText(double value)
{
    char digits[32];
    return std::string(digits, std::to_chars(digits, digits + sizeof(digits), value).ptr);
}

std::string FieldText(std::int32_t value)
{
    return std::to_string(value);
}

std::string FieldText(DXF_STRING value)
{
    return ToTraceText(value);
}

std::string FieldText(const DXF_HANDLE& value)
{
    return ToTraceText(value.Wide());
}

FieldTexts FieldMapOf(const DXF_GRAPHIC_BASE& record)
{
    return {FIELD(m_strHandle),      RARE(m_strAppData),   FIELD(m_strOwnerHandle), FIELD(m_strSubclass),
            RARE(m_nPaperSpace),     RARE(m_strLayout),    FIELD(m_strLayer),       FIELD(m_strLineType),
            RARE(m_strMaterial),     FIELD(m_nColor),      FIELD(m_nLineWeight),    RARE(m_dLineTypeScale),
            FIELD(m_nVisibility),    RARE(m_strProxyData), FIELD(m_nTrueColor),     RARE(m_strColorName),
            RARE(m_nProxyByteCount), RARE(m_strPlotStyle), RARE(m_nShadowMode),     FIELD(m_nEntityType),
            RARE(m_strTransparency)};
}

FieldTexts FieldMapOf(const DXF_GRAPHIC_TEXT& record)
{
    FieldTexts fields = FieldMapOf(static_cast<const DXF_GRAPHIC_BASE&>(record));
    fields.merge(FieldTexts{
        RARE(m_dThickness), FIELD(m_dInsertX), FIELD(m_dInsertY), FIELD(m_dInsertZ), FIELD(m_dHeight),
        FIELD(m_strText), FIELD(m_dRotation), FIELD(m_dScaleX), FIELD(m_dOblique), FIELD(m_strStyle),
        FIELD(m_nGenerationFlags), FIELD(m_nHorzAlign), FIELD(m_dAlignX), FIELD(m_dAlignY), FIELD(m_dAlignZ),
        RARE(m_dExtrusionX), RARE(m_dExtrusionY), RARE(m_dExtrusionZ), FIELD(m_nVertAlign)});
    return fields;
}

FieldTexts FieldMapOf(const DXF_GRAPHIC_MTEXT& record)
{
    FieldTexts fields = FieldMapOf(static_cast<const DXF_GRAPHIC_BASE&>(record));
    fields.merge(FieldTexts{FIELD(m_dInsertX),
                            FIELD(m_dInsertY),
                            FIELD(m_dInsertZ),
                            FIELD(m_dHeight),
                            FIELD(m_dRefWidth),
                            FIELD(m_nAttachment),
                            FIELD(m_nDrawingDirection),
                            FIELD(m_strText),
                            FIELD(m_strTextMore),
                            FIELD(m_strStyle),
                            RARE(m_dExtrusionX),
                            RARE(m_dExtrusionY),
                            RARE(m_dExtrusionZ),
                            FIELD(m_dDirX),
                            FIELD(m_dDirY),
                            FIELD(m_dDirZ),
                            FIELD(m_dCharWidth),
                            FIELD(m_dRectHeight),
                            FIELD(m_dRotation),
                            FIELD(m_nLineSpacingStyle),
                            FIELD(m_dLineSpacing),
                            FIELD(m_nBackgroundFill),
                            FIELD(m_nBackgroundTrueColor),
                            FIELD(m_nBackgroundColor),
                            FIELD(m_dBackgroundTransparency),
                            FIELD(m_nColumnType),
                            FIELD(m_nColumnCount),
                            FIELD(m_nColumnFlowReversed),
                            FIELD(m_dColumnAutoHeight),
                            FIELD(m_dColumnWidth),
                            FIELD(m_dColumnGutter)});
    return fields;
}

FieldTexts FieldMapOf(const DXF_GRAPHIC_INSERT& record)
{
    FieldTexts fields = FieldMapOf(static_cast<const DXF_GRAPHIC_BASE&>(record));
    fields.merge(FieldTexts{FIELD(m_nAttributesFollow), FIELD(m_strBlockName), FIELD(m_dInsertX),
                            FIELD(m_dInsertY), FIELD(m_dInsertZ), FIELD(m_dScaleX), FIELD(m_dScaleY),
                            FIELD(m_dScaleZ), FIELD(m_dRotation), FIELD(m_nColumnCount), FIELD(m_nRowCount),
                            FIELD(m_nColumnSpacing), FIELD(m_nRowSpacing), RARE(m_dExtrusionX),
                            RARE(m_dExtrusionY), RARE(m_dExtrusionZ)});
    return fields;
}

FieldTexts FieldMapOf(const DXF_BLOCKS_BLOCK& record)
{
    return {FIELD(m_nObjectType), FIELD(m_strHandle),     FIELD(m_strAppData), FIELD(m_strOwnerHandle),
            FIELD(m_strSubclass), FIELD(m_strLayer),      FIELD(m_strName),    FIELD(m_nFlags),
            FIELD(m_dBaseX),      FIELD(m_dBaseY),        FIELD(m_dBaseZ),     FIELD(m_strName3),
            FIELD(m_strXrefPath), FIELD(m_strDescription)};
}

FieldTexts SharedDefaults(int kind)
{
    return {{"m_strHandle", ""},    {"m_strAppData", ""},       {"m_strOwnerHandle", ""},
            {"m_strSubclass", ""},  {"m_nPaperSpace", "0"},     {"m_strLayout", ""},
            {"m_strLayer", ""},     {"m_strLineType", ""},      {"m_strMaterial", ""},
            {"m_nColor", "0"},      {"m_nLineWeight", "-1"},    {"m_dLineTypeScale", "1"},
            {"m_nVisibility", "0"}, {"m_strProxyData", ""},     {"m_nTrueColor", "0"},
            {"m_strColorName", ""}, {"m_strTransparency", ""},  {"m_strPlotStyle", ""},
            {"m_nShadowMode", "0"}, {"m_nProxyByteCount", "0"}, {"m_nEntityType", std::to_string(kind)}};
}

FieldTexts With(FieldTexts defaults, std::initializer_list<FieldTexts::value_type> changed)
{
    for (const auto& [name, text] : changed)
        defaults[name] = text;
    return defaults;
}

UnknownCodes::UnknownCodes(std::string_view type, std::initializer_list<int> known)
{
    // Those that all entities share.
    static const int kShared[] = {0,   5,   6,   8,   48,  60,  62,  67,  92,  100, 102,
                                  284, 310, 330, 347, 370, 390, 410, 420, 430, 440};
    std::string groups;
    int line = 6; // the one that holds the type name
    for (int code = -3; code <= 1100; ++code) {
        if (std::find(known.begin(), known.end(), code) != known.end() ||
            std::find(std::begin(kShared), std::end(kShared), code) != std::end(kShared))
            continue;
        groups += std::to_string(code) + "\nv\n";
        line += 2;
        messages.push_back("1 7 ReadENTITIES_COMMON Unknown Dimension type  ('" + std::to_string(code) +
                           "' = 'v') Line:" + std::to_string(line));
    }
    drawing = Section("ENTITIES", Lines({"0", type}) + groups);
}
