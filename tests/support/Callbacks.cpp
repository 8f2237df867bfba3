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

#define KEEP_CALLBACK(number, TYPE, Callback, constness)                                                     \
    void CallbackReader::On##Callback(constness DXF_GRAPHIC_##TYPE& entity)                                  \
    {                                                                                                        \
        Keep("On" #Callback, entity);                                                                        \
    }
DXF_DRAWN_TYPES(KEEP_CALLBACK)
#undef KEEP_CALLBACK

std::vector<std::string> CallbacksOf(std::string_view dxf)
{
    CallbackReader reader;
    reader.ReadText(dxf);
    return reader.calls;
}
