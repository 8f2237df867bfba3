// The BLOCKS section.
#include "entities/DXF_BLOCKS_BLOCK.h"
#include "reader/ReadFields.h"

namespace {

using BLOCK = DXF_BLOCKS_BLOCK;

void ReadAppGroup(CDxfRead& reader, CDxfStream& stream, BLOCK& block, CDxfLine value)
{
    reader.ReadGroup(stream, block.m_strAppData, Trim(value), "102");
}

constexpr auto kFields = DxfFields<BLOCK>({
    End(0),
    {5, &BLOCK::m_strHandle},
    {102, ReadAppGroup},
    {330, &BLOCK::m_strOwnerHandle},
    KeptOnce(8, &BLOCK::m_strLayer),
    KeptOnce(2, &BLOCK::m_strName),
    {70, &BLOCK::m_nFlags},
    {10, &BLOCK::m_dBaseX},
    {20, &BLOCK::m_dBaseY},
    {30, &BLOCK::m_dBaseZ},
    KeptOnce(3, &BLOCK::m_strName3),
    {1, &BLOCK::m_strXrefPath},
    {4, &BLOCK::m_strDescription},
});

} // namespace

// Both loops look for the end of the file before each round, so a name that was read together with it is not
// looked at.
void CDxfRead::ReadBLOCKS(CDxfStream& stream)
{
    std::string_view name = ReadTrimmed(stream);
    while (!stream.eof()) {
        if (name == "ENDSEC")
            return;
        if (name != "BLOCK") {
            Report(DXF_ERROR_OBJECT_TYPE, L"%s - Unknown Object Type Name (%d)", {name, lineCount});
            Read_UNKNOWN(stream);
        } else if (DXF_BLOCKS_BLOCK* const block = ReadBLOCKS_BLOCK(stream)) {
            ReadBlockEntities(stream, *block);
        } else {
            // Reading falls back into step at this level: the entities of a block whose header failed, and
            // its ENDBLK, are reported here and skipped one by one (quirk 88).
            Report(DXF_ERROR_UNFINISHED, L"ReadBLOCKS_BLOCK() Failed to read line, Line:%d", {lineCount});
        }
        name = ReadTrimmed(stream);
    }
}

// Reads the entities of a block up to the "0" after its ENDBLK. A name that begins no entity is passed over,
// one line at a time (quirk 86): a block without an ENDBLK reads the next section into itself (quirk 89).
void CDxfRead::ReadBlockEntities(CDxfStream& stream, DXF_BLOCKS_BLOCK& block)
{
    std::string_view name = ReadTrimmed(stream);
    while (!stream.eof()) {
        if (name == "ENDBLK") {
            Read_UNKNOWN(stream);
            return;
        }
        if (IsEntityTypeName(name))
            ReadENTITIES(stream, name, block.m_entities);
        name = ReadTrimmed(stream);
    }
}

// Only a block whose header is complete gets into the list. Unlike those of an entity, its unknown codes, 100
// among them, give no message (quirk 126).
DXF_BLOCKS_BLOCK* CDxfRead::ReadBLOCKS_BLOCK(CDxfStream& stream)
{
    DXF_BLOCKS_BLOCK* const block = store.New<DXF_BLOCKS_BLOCK>();
    const auto ignore = [](std::int32_t, std::string_view) {};
    if (ReadFields(stream, *block, kFields, L"ReadBLOCKS_BLOCK Failed to read integer from '%s', Line:%d",
                   ignore) != DXF_END_ZERO)
        return nullptr;
    blocks.Add(store, block);
    return block;
}
