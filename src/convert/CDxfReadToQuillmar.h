// The converter: draws what has been read in the host's document.
#pragma once

#include "convert/CDxfStyleTexts.h"
#include "drawing/Transform.h"
#include "host/QuillmarLib.h"
#include "reader/CDxfRead.h"

#include <cstdint>
#include <string>
#include <unordered_map>

#define DXF_DECLARE_DRAWING(number, TYPE, Callback, constness)                                               \
    void On##Callback(constness DXF_GRAPHIC_##TYPE& record) override;

// One converter draws one file. It is built for the duration of an import and reports nothing of its own:
// missing layers and line types, and nodes of 0 from the host, fall back to defaults.
class CDxfReadToQuillmar : public CDxfRead {
public:
    // parent is the context node of every host call.
    explicit CDxfReadToQuillmar(QlmNode parent) : parentNode(parent) {}

    int OnError(std::uint32_t code, int kind, const wchar_t* message, std::int64_t extra) override;
    void OnBlockBegin(const DXF_BLOCKS_BLOCK& block) override;
    void OnBlockEnd(const DXF_BLOCKS_BLOCK& block) override;
    // Each draws the entities of a type.
    DXF_DRAWN_TYPES(DXF_DECLARE_DRAWING)

    QlmNode parentNode;
    bool drawEnabled = true;       // the callbacks draw only while this is set
    double scale = 1.0;            // factor of every coordinate, radius, text height and line weight
    double defaultLineWidth = 0.5; // stroke width where no line weight applies, as a fraction of scale
    std::int32_t yAxisMode = kFlippedYAxisMode;

private:
    // True if the drawing callbacks may call the host. OnLWPolyline does not ask (quirk 61).
    bool MayDraw() const { return drawEnabled && parentNode != nullptr; }
    bool IsFlipped() const { return yAxisMode == kFlippedYAxisMode; }
    DXF_POINT2D Transform(double x, double y) const { return TransformPoint(x, y, scale, yAxisMode); }

    // The width of an entity's stroke, scaled.
    double GetStrokeWidth(const DXF_GRAPHIC_BASE& entity);
    // The colour of an entity's stroke, red in the low byte.
    std::uint32_t GetEntityColor(const DXF_GRAPHIC_BASE& entity);
    // The dash lengths of an entity's line type, "" for a solid line.
    DXF_STRING GetDashArray(const DXF_GRAPHIC_BASE& entity);

    void SetAttribute(QlmNode node, const wchar_t* name, const wchar_t* value) const
    {
        qlmSetAttributeByNode(parentNode, node, name, value);
    }
    void SetNumber(QlmNode node, const wchar_t* name, double value) const;
    // "stroke-width", "stroke", "stroke-dasharray" and, for an invisible entity, "visibility".
    void SetStyle(QlmNode node, const DXF_GRAPHIC_BASE& entity);
    void SetStroke(QlmNode node, const DXF_GRAPHIC_BASE& entity);
    DXF_STRING KeepWidth(double width);
    DXF_STRING KeepColor(std::uint32_t color);
    DXF_STYLE_TEXTS GetStyleTexts(const DXF_GRAPHIC_BASE& entity);
    void GrowPoints(const DXF_POINT2D* vertex, const DXF_POINT2D* end);
    void DrawText(const DXF_GRAPHIC_BASE& entity, double x, double y, double height, const wchar_t* text,
                  const wchar_t* anchor);

    // The values above do not change while entities are drawn: what depends on them is made once.
    CDxfStyleTexts m_styleTexts;
    std::unordered_map<const DXF_TABLES_LTYPE*, DXF_STRING> m_dashTexts;
    std::wstring m_points; // of the polyline that is being drawn
};

#undef DXF_DECLARE_DRAWING
