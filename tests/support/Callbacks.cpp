#include "support/Callbacks.h"

#include "entities/DXF_BLOCKS_BLOCK.h"
#include "entities/DXF_GRAPHIC_DIMENSION.h"
#include "entities/DXF_GRAPHIC_GEOMETRY.h"
#include "entities/DXF_GRAPHIC_INSERT.h"
#include "entities/DXF_GRAPHIC_TEXT.h"

void CallbackReader::Keep(const char* callback, const DXF_GRAPHIC_BASE& entity)
{
    calls.push_back(callback + (" " + ToTraceText(entity.m_strLayer)));
}

int CallbackReader::OnError(std::uint32_t code, int kind, const wchar_t* message, std::int64_t extra)
{
    ReportingReader::OnError(code, kind, message, extra);
    calls.push_back("OnError " + errors.back());
    return 0;
}

void CallbackReader::OnBlockBegin(const DXF_BLOCKS_BLOCK& block)
{
    calls.push_back("OnBlockBegin " + ToTraceText(block.m_strName));
}

void CallbackReader::OnBlockEnd(const DXF_BLOCKS_BLOCK& block)
{
    calls.push_back("OnBlockEnd " + ToTraceText(block.m_strName));
}

void CallbackReader::OnDimension(const DXF_GRAPHIC_DIMENSION& dimension)
{
    Keep("OnDimension", dimension);
}

void CallbackReader::OnLine(const DXF_GRAPHIC_LINE& line)
{
    Keep("OnLine", line);
}

void CallbackReader::OnArc(DXF_GRAPHIC_ARC& arc)
{
    Keep("OnArc", arc);
}

void CallbackReader::OnCircle(const DXF_GRAPHIC_CIRCLE& circle)
{
    Keep("OnCircle", circle);
}

void CallbackReader::OnEllipse(const DXF_GRAPHIC_ELLIPSE& ellipse)
{
    Keep("OnEllipse", ellipse);
}

void CallbackReader::OnLWPolyline(const DXF_GRAPHIC_LWPOLYLINE& polyline)
{
    Keep("OnLWPolyline", polyline);
}

void CallbackReader::OnText(const DXF_GRAPHIC_TEXT& text)
{
    Keep("OnText", text);
}

void CallbackReader::OnMText(const DXF_GRAPHIC_MTEXT& text)
{
    Keep("OnMText", text);
}

void CallbackReader::OnInsert(const DXF_GRAPHIC_INSERT& insert)
{
    Keep("OnInsert", insert);
}

std::vector<std::string> CallbacksOf(std::string_view dxf)
{
    CallbackReader reader;
    reader.ReadText(dxf);
    return reader.calls;
}
