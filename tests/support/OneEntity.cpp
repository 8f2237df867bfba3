#include "support/OneEntity.h"

#include <algorithm>
#include <iterator>

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
        groups += Dxf({{code, "v"}});
        line += 2;
        messages.push_back("1 7 ReadENTITIES_COMMON Unknown Dimension type  ('" + std::to_string(code) +
                           "' = 'v') Line:" + std::to_string(line));
    }
    drawing = Section("ENTITIES", Dxf({{0, type}}) + groups);
}
