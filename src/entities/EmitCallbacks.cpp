// The callback pass: from the records to the picture.
#include "entities/DXF_BLOCKS_BLOCK.h"
#include "entities/DXF_GRAPHIC_DIMENSION.h"
#include "entities/DXF_GRAPHIC_GEOMETRY.h"
#include "entities/DXF_GRAPHIC_INSERT.h"
#include "entities/DXF_GRAPHIC_TEXT.h"
#include "reader/CDxfRead.h"

#include <algorithm>

namespace {

bool HoldsInsert(const DXF_BLOCKS_BLOCK& block)
{
    return std::any_of(block.m_entities.begin(), block.m_entities.end(), [](const DXF_GRAPHIC_BASE* entity) {
        return entity->m_nEntityType == DXF_ENTITY_INSERT;
    });
}

} // namespace

// Two passes put every block that is drawn from plain entities before any block that refers to another.
// Deeper nesting gets no further order: such blocks come in file order (quirk 79).
void CDxfRead::EmitCallbacks()
{
    for (DXF_BLOCKS_BLOCK* block : blocks) {
        block->hasNestedInsert = block->hasNestedInsert || HoldsInsert(*block);
        if (!block->hasNestedInsert)
            EmitBlock(*block);
    }
    for (DXF_BLOCKS_BLOCK* block : blocks)
        if (block->hasNestedInsert)
            EmitBlock(*block);
    for (DXF_GRAPHIC_BASE* entity : entities)
        EmitEntity(*entity);
}

void CDxfRead::EmitBlock(const DXF_BLOCKS_BLOCK& block)
{
    ReportingMemory([&] { OnBlockBegin(block); });
    for (DXF_GRAPHIC_BASE* entity : block.m_entities)
        EmitEntity(*entity);
    ReportingMemory([&] { OnBlockEnd(block); });
}

// If memory runs short, only the entity that needed it is lost.
void CDxfRead::EmitEntity(DXF_GRAPHIC_BASE& entity)
{
    ReportingMemory([&] {
        switch (entity.m_nEntityType) {
#define DXF_EMIT(number, TYPE, Callback, constness)                                                          \
    case DXF_ENTITY_##TYPE:                                                                                  \
        return On##Callback(static_cast<DXF_GRAPHIC_##TYPE&>(entity));
            DXF_DRAWN_TYPES(DXF_EMIT)
#undef DXF_EMIT
        default:
            return;
        }
    });
}
