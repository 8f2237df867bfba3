// One entity by its type name, and the skipping of those that are not kept.
#include "base/Blanks.h"
#include "reader/CDxfRead.h"

#include <algorithm>
#include <iterator>

namespace {

// An entity type that has a reader, or one that is skipped (no reader) with a message text of its own.
struct EntityReader {
    std::string_view typeName;
    bool (CDxfRead::*read)(CDxfStream& stream, DXF_ENTITY_LIST& list);
    const wchar_t* failed;
    const wchar_t* skipInteger;
};

constexpr EntityReader kReaders[] = {
#define DXF_FAILED(TYPE) L"ReadENTITIES_" #TYPE L"() Failed to read line, Line:%d"
#define DXF_READ(number, TYPE, Callback, constness)                                                          \
    {#TYPE, &CDxfRead::ReadENTITIES_##TYPE, DXF_FAILED(TYPE), nullptr},
#define DXF_SKIP(TYPE, parentheses)                                                                          \
    {#TYPE, nullptr, DXF_FAILED(TYPE),                                                                       \
     L"ReadENTITIES_" #TYPE parentheses L" Failed to read integer from '%s', Line:%d"},
    DXF_DRAWN_TYPES(DXF_READ) DXF_SKIPPED_TYPES(DXF_SKIP)
#undef DXF_FAILED
#undef DXF_READ
#undef DXF_SKIP
};

const EntityReader* FindReader(std::string_view typeName)
{
    const auto reader = std::find_if(std::begin(kReaders), std::end(kReaders),
                                     [&](const EntityReader& entry) { return entry.typeName == typeName; });
    return reader == std::end(kReaders) ? nullptr : reader;
}

} // namespace

void CDxfRead::ReadENTITIES(CDxfStream& stream, std::string_view typeName, DXF_ENTITY_LIST& list)
{
    const EntityReader* const reader = FindReader(typeName);
    if (reader == nullptr) {
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
    // Nearly all are of the few types that have a reader.
    return FindReader(name) != nullptr || FateOfEntityType(name) != DXF_ENTITY_FATE::None;
}
