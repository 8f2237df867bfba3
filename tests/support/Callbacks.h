// A reader that writes down the callbacks it gets.
#pragma once

#include "support/Import.h"

#include <string>
#include <vector>

// Keeps one text for each callback, errors among them, in the order in which they came: the callback's name
// and, after a blank, what identifies the record: a block's name, an entity's layer.
class CallbackReader : public ReportingReader {
public:
    void OnDimension(const DXF_GRAPHIC_DIMENSION& dimension) override;
    int OnError(std::uint32_t code, int kind, const wchar_t* message, std::int64_t extra) override;
    void OnBlockBegin(const DXF_BLOCKS_BLOCK& block) override;
    void OnBlockEnd(const DXF_BLOCKS_BLOCK& block) override;
    void OnLine(const DXF_GRAPHIC_LINE& line) override;
    void OnArc(DXF_GRAPHIC_ARC& arc) override;
    void OnCircle(const DXF_GRAPHIC_CIRCLE& circle) override;
    void OnEllipse(const DXF_GRAPHIC_ELLIPSE& ellipse) override;
    void OnLWPolyline(const DXF_GRAPHIC_LWPOLYLINE& polyline) override;
    void OnText(const DXF_GRAPHIC_TEXT& text) override;
    void OnMText(const DXF_GRAPHIC_MTEXT& text) override;
    void OnInsert(const DXF_GRAPHIC_INSERT& insert) override;

    std::vector<std::string> calls;

private:
    void Keep(const char* callback, const DXF_GRAPHIC_BASE& entity);
};

// The callbacks that a whole drawing gives.
std::vector<std::string> CallbacksOf(std::string_view dxf);
