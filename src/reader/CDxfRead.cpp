#include "reader/CDxfRead.h"

#include "base/Numbers.h"

#define DXF_DEFINE_CALLBACK(number, TYPE, Callback, constness)                                               \
    void CDxfRead::On##Callback(constness DXF_GRAPHIC_##TYPE&) {}
DXF_DRAWN_TYPES(DXF_DEFINE_CALLBACK)
#undef DXF_DEFINE_CALLBACK

void CDxfRead::OnBlockBegin(const DXF_BLOCKS_BLOCK&) {}
void CDxfRead::OnBlockEnd(const DXF_BLOCKS_BLOCK&) {}
int CDxfRead::OnError(std::uint32_t, int, const wchar_t*, std::int64_t)
{
    return 0;
}

std::string_view CDxfRead::ReadTrimmed(CDxfStream& stream)
{
    return Trim(ReadLine(stream));
}

bool CDxfRead::ReadCode(CDxfStream& stream, std::int32_t& code, const wchar_t* message)
{
    std::string_view line;
    if (!stream.TryLine(line)) [[unlikely]]
        return ReadCodeOfOtherLine(stream, code, message);
    CountLine();
    return ParseUsualCode(line, code) || TakeOtherCode(line, code, message);
}

// Not part of ReadCode, which so calls nothing before it returns and saves no registers: that is a twentieth
// of the instructions of reading.
bool CDxfRead::ReadCodeOfOtherLine(CDxfStream& stream, std::int32_t& code, const wchar_t* message)
{
    const std::string_view line = ReadLine(stream);
    return ParseUsualCode(line, code) || TakeOtherCode(line, code, message);
}

bool CDxfRead::TakeOtherCode(std::string_view line, std::int32_t& code, const wchar_t* message)
{
    if (ParseCode(line, code))
        return true;
    Report(DXF_ERROR_INTEGER, message, {Trim(line), lineCount});
    return false;
}

void CDxfRead::Report(int kind, const wchar_t* format, std::initializer_list<CDxfMessageArgument> arguments)
{
    OnError(0, kind, CDxfMessage(format, arguments).c_str(), 0);
}

void CDxfRead::ReportTrouble(CDxfStream& stream)
{
    if (stream.TakeLineWasCut())
        Report(DXF_ERROR_LONG_LINE, L"CDxfRead Line longer than 1023 characters cut, Line:%d", {lineCount});
    if (stream.TakeReadFailed())
        Report(DXF_ERROR_READ, L"CDxfRead Failed to read file, Line:%d", {lineCount});
}

void CDxfRead::ReportMemory()
{
    Report(DXF_ERROR_MEMORY, L"CDxfRead Out of memory, Line:%d", {lineCount});
}
