// One entity by its type name, and the skipping of those that are not kept.
#include "base/Numbers.h"
#include "reader/CDxfRead.h"

#include <algorithm>
#include <iterator>

namespace {

// An entity type that has a reader, or one that is skipped (no reader) with a message text of its own.
struct ENTITY_READER {
    std::string_view typeName;
    bool (CDxfRead::*read)(CDxfStream& stream, DXF_ENTITY_LIST& list);
    const wchar_t* failed;
    const wchar_t* skipInteger;
};

// Two of the skips print parentheses after the name and three do not (quirk 122).
constexpr ENTITY_READER kReaders[] = {
    {"LINE", &CDxfRead::ReadENTITIES_LINE, L"ReadENTITIES_LINE() Failed to read line, Line:%d", nullptr},
    {"ARC", &CDxfRead::ReadENTITIES_ARC, L"ReadENTITIES_ARC() Failed to read line, Line:%d", nullptr},
    {"CIRCLE", &CDxfRead::ReadENTITIES_CIRCLE, L"ReadENTITIES_CIRCLE() Failed to read line, Line:%d",
     nullptr},
    {"MTEXT", &CDxfRead::ReadENTITIES_MTEXT, L"ReadENTITIES_MTEXT() Failed to read line, Line:%d", nullptr},
    {"TEXT", &CDxfRead::ReadENTITIES_TEXT, L"ReadENTITIES_TEXT() Failed to read line, Line:%d", nullptr},
    {"ELLIPSE", &CDxfRead::ReadENTITIES_ELLIPSE, L"ReadENTITIES_ELLIPSE() Failed to read line, Line:%d",
     nullptr},
    {"LWPOLYLINE", &CDxfRead::ReadENTITIES_LWPOLYLINE,
     L"ReadENTITIES_LWPOLYLINE() Failed to read line, Line:%d", nullptr},
    {"INSERT", &CDxfRead::ReadENTITIES_INSERT, L"ReadENTITIES_INSERT() Failed to read line, Line:%d",
     nullptr},
    {"POLYLINE", nullptr, L"ReadENTITIES_POLYLINE() Failed to read line, Line:%d",
     L"ReadENTITIES_POLYLINE Failed to read integer from '%s', Line:%d"},
    {"SPLINE", nullptr, L"ReadENTITIES_SPLINE() Failed to read line, Line:%d",
     L"ReadENTITIES_SPLINE Failed to read integer from '%s', Line:%d"},
    {"POINT", nullptr, L"ReadENTITIES_POINT() Failed to read line, Line:%d",
     L"ReadENTITIES_POINT Failed to read integer from '%s', Line:%d"},
    {"DIMENSION", &CDxfRead::ReadENTITIES_DIMENSION, L"ReadENTITIES_DIMENSION() Failed to read line, Line:%d",
     nullptr},
    {"HATCH", nullptr, L"ReadENTITIES_HATCH() Failed to read line, Line:%d",
     L"ReadENTITIES_HATCH() Failed to read integer from '%s', Line:%d"},
    {"VIEWPORT", nullptr, L"ReadENTITIES_VIEWPORT() Failed to read line, Line:%d",
     L"ReadENTITIES_VIEWPORT() Failed to read integer from '%s', Line:%d"},
};

// Every name of the format that begins an entity within a block, MLEADERSTYLE and SECTION among them.
// In alphabetical order.
constexpr std::string_view kEntityTypeNames[] = {
    "3DFACE",   "3DSOLID",  "ACAD_PROXY_ENTITY",
    "ARC",      "ATTDEF",   "ATTRIB",
    "BODY",     "CIRCLE",   "DIMENSION",
    "ELLIPSE",  "HATCH",    "HELIX",
    "IMAGE",    "INSERT",   "LEADER",
    "LIGHT",    "LINE",     "LWPOLYLINE",
    "MESH",     "MLEADER",  "MLEADERSTYLE",
    "MLINE",    "MTEXT",    "OLE2FRAME",
    "OLEFRAME", "POINT",    "POLYLINE",
    "RAY",      "REGION",   "SECTION",
    "SEQEND",   "SHAPE",    "SOLID",
    "SPLINE",   "SUN",      "SURFACE",
    "TABLE",    "TEXT",     "TOLERANCE",
    "TRACE",    "UNDERLAY", "VERTEX",
    "VIEWPORT", "WIPEOUT",  "XLINE",
};
static_assert(std::size(kEntityTypeNames) == 45);
static_assert(std::is_sorted(std::begin(kEntityTypeNames), std::end(kEntityTypeNames)));

} // namespace

void CDxfRead::ReadENTITIES(CDxfStream& stream, std::string_view typeName, DXF_ENTITY_LIST& list)
{
    const auto reader = std::find_if(std::begin(kReaders), std::end(kReaders),
                                     [&](const ENTITY_READER& entry) { return entry.typeName == typeName; });
    if (reader == std::end(kReaders)) {
        Report(DXF_ERROR_OBJECT_TYPE, L"%s - Unknown Object Type Name (%d)", {typeName, lineCount});
        Read_UNKNOWN(stream);
        return;
    }
    const bool ended = reader->read != nullptr ? (this->*reader->read)(stream, list)
                                               : SkipPairs(stream, reader->skipInteger);
    if (!ended)
        Report(DXF_ERROR_UNFINISHED, reader->failed, {lineCount});
}

bool CDxfRead::Read_UNKNOWN(CDxfStream& stream)
{
    return SkipPairs(stream, L"Read_UNKNOWN() Failed to read integer from '%s', Line:%d");
}

// Reads and drops pairs up to a code 0; false at the end of the file and, after the message, at a code line
// that is no integer.
bool CDxfRead::SkipPairs(CDxfStream& stream, const wchar_t* message)
{
    while (!stream.eof()) {
        std::int32_t code = -1;
        if (!ReadCode(stream, code, message))
            return false;
        if (code == 0)
            return true;
        ReadLine(stream);
    }
    return false;
}

bool CDxfRead::IsEntityTypeName(std::string_view name)
{
    return std::binary_search(std::begin(kEntityTypeNames), std::end(kEntityTypeNames), name);
}
