#include "support/ReadingText.h"

#include "dimension/DXF_GRAPHIC_DIMENSION_PARTS.h"
#include "entities/DXF_BLOCKS_BLOCK.h"
#include "entities/DXF_GRAPHIC_DIMENSION.h"
#include "reader/DXF_TABLES.h"
#include "support/RecordText.h"

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

} // namespace

std::string ReadingText(const CallbackReader& reader)
{
    std::string text;
    for (const std::string& call : reader.calls)
        text += call + '\n';
    text += "lines=" + std::to_string(reader.lineCount) + '\n';
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
