// Stroke width, colour, dashes and visibility of an entity.
#include "base/Numbers.h"
#include "convert/CDxfReadToQuillmar.h"
#include "entities/DXF_GRAPHIC_BASE.h"

#include <algorithm>
#include <cmath>

double CDxfReadToQuillmar::GetStrokeWidth(const DXF_GRAPHIC_BASE& entity)
{
    const double defaultWidth = scale * defaultLineWidth;
    const DXF_TABLES_LAYER* const layer = FindLayer(entity.m_strLayer);
    std::int32_t weight = entity.m_nLineWeight;
    if (weight == -1) { // by layer
        if (layer == nullptr)
            return defaultWidth;
        weight = layer->m_nLineWeight;
    }
    // What is left below 1 is by block, 0 or a layer's own -1 or -3 (quirk 33).
    return weight >= 1 ? weight / 100.0 * scale : defaultWidth;
}

std::uint32_t CDxfReadToQuillmar::GetEntityColor(const DXF_GRAPHIC_BASE& entity)
{
    // A file writes a true colour as 0xRRGGBB, but its low byte is printed as red; 0 is none
    // (quirks 24 and 25).
    if (entity.m_nTrueColor != 0)
        return static_cast<std::uint32_t>(entity.m_nTrueColor);
    const bool isOfLayer = entity.m_nColor <= 0 || entity.m_nColor == 256; // by block too (quirk 26)
    return isOfLayer ? GetLayerColor(entity.m_strLayer) : GetPaletteColor(entity.m_nColor);
}

// Names such as ByLayer or Continuous are line types like any other (quirk 39). Dash lengths are not scaled
// (quirk 35).
DXF_STRING CDxfReadToQuillmar::GetDashArray(const DXF_GRAPHIC_BASE& entity)
{
    DXF_STRING name = entity.m_strLineType;
    if (name.empty())
        if (const DXF_TABLES_LAYER* const layer = FindLayer(entity.m_strLayer))
            name = layer->m_strLineType;
    const DXF_TABLES_LTYPE* const lineType = FindLineType(name);
    if (lineType == nullptr)
        return {};
    if (const auto known = m_dashTexts.find(lineType); known != m_dashTexts.end())
        return known->second;
    std::size_t room = 0; // the lengths may have 309 digits: a text that grew would be there twice
    for (const double dash : lineType->m_dashes)
        room += RoomForFixed6(std::fabs(dash)) + 1;
    DXF_STRING text = store.Start(room);
    for (const double dash : lineType->m_dashes) {
        char number[kLongestNumber];
        const char* const end = FormatFixed6(std::fabs(dash), number);
        if (!text.empty())
            store.Append(text, ",");
        store.Append(text, {number, static_cast<std::size_t>(end - number)});
    }
    m_dashTexts.emplace(lineType, text);
    return text;
}

// Few widths and colours are different, however many layers there are: their texts are kept once, too.
DXF_STRING CDxfReadToQuillmar::KeepWidth(double width)
{
    char text[kLongestNumber];
    char* const end = FormatFixed6(width, text);
    return store.KeepOnce({text, static_cast<std::size_t>(end - text)});
}

DXF_STRING CDxfReadToQuillmar::KeepColor(std::uint32_t color)
{
    char text[sizeof("RGB(255,255,255)")];
    char* end = std::copy_n("RGB(", 4, text);
    for (const int shift : {0, 8, 16}) {
        end = FormatInteger(static_cast<std::int32_t>(color >> shift & 255), end);
        *end++ = shift == 16 ? ')' : ',';
    }
    return store.KeepOnce({text, static_cast<std::size_t>(end - text)});
}

DXF_STYLE_TEXTS CDxfReadToQuillmar::GetStyleTexts(const DXF_GRAPHIC_BASE& entity)
{
    return m_styleTexts.Find(entity, [this](const DXF_GRAPHIC_BASE& unknown) {
        return DXF_STYLE_TEXTS{KeepWidth(GetStrokeWidth(unknown)), KeepColor(GetEntityColor(unknown)),
                               GetDashArray(unknown)};
    });
}

void CDxfReadToQuillmar::SetStyle(QlmNode node, const DXF_GRAPHIC_BASE& entity)
{
    const DXF_STYLE_TEXTS texts = GetStyleTexts(entity);
    SetAttribute(node, L"stroke-width", texts.width.c_str());
    SetAttribute(node, L"stroke", texts.color.c_str());
    SetAttribute(node, L"stroke-dasharray", texts.dashes.c_str());
    if (entity.m_nVisibility == 1)
        SetAttribute(node, L"visibility", L"hidden");
}

void CDxfReadToQuillmar::SetStroke(QlmNode node, const DXF_GRAPHIC_BASE& entity)
{
    SetAttribute(node, L"stroke", GetStyleTexts(entity).color.c_str());
}
