// Everything that is read of a drawing, sections, tables, blocks, entities and dimensions, against a slow and
// plain reading of the same bytes.
//
// Input: a byte of how it is read (1: read sizes vary), a byte for the most bytes a read gives (0: no limit),
// the drawing.
#include "FuzzInput.h"
#include "FuzzSource.h"
#include "KeptBuffer.h"
#include "PlainReading.h"

#include "entities/DXF_BLOCKS_BLOCK.h"
#include "support/Callbacks.h"
#include "support/Dimensions.h"
#include "support/RecordText.h"

#include <string>

namespace {

std::string Sorted(const FieldTexts& fields)
{
    std::string text;
    for (const auto& [name, value] : fields)
        text.append(name).append("=").append(value).append("\n");
    return text;
}

std::string EntityText(const DXF_GRAPHIC_BASE& entity)
{
    std::string text = RecordText(entity);
    if (entity.m_nEntityType == DXF_ENTITY_DIMENSION)
        for (const DXF_GRAPHIC_DIMENSION_BASE* part :
             static_cast<const DXF_GRAPHIC_DIMENSION&>(entity).m_parts)
            text += Sorted(FieldMapOf(*part));
    return text;
}

std::string FieldsOf(const CallbackReader& reader)
{
    std::string text;
    for (const std::string& call : reader.calls)
        text += call + '\n';
    text += LineCountLine(reader.lineCount);
    for (const DXF_TABLES_HEADER* table : reader.tables) {
        text += RecordText(*table);
        for (const DXF_TABLES_COMMON* entry : table->m_entries)
            text += RecordText(*entry);
    }
    for (const DXF_BLOCKS_BLOCK* block : reader.blocks) {
        text += Sorted(FieldMapOf(*block));
        for (const DXF_GRAPHIC_BASE* entity : block->m_entities)
            text += EntityText(*entity);
    }
    for (const DXF_GRAPHIC_BASE* entity : reader.entities)
        text += EntityText(*entity);
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    [[maybe_unused]] static const bool isBufferKept = (KeepBuffer(), true);
    FuzzInput input(data, size);
    const bool varies = (input.Byte() & 1) != 0;
    const std::uint8_t most = input.Byte();
    const std::string_view drawing = input.Rest();
    FuzzSource source(drawing, {most, varies, false});
    CallbackReader reader;
    reader.ReadDxfSource(source);
    FuzzRequireSame("what a drawing holds", ReadPlainly(drawing), FieldsOf(reader));
    return 0;
}
