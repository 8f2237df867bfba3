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

// Shortage of memory costs the entity that met it, not those behind it.
void CDxfRead::EmitEntity(DXF_GRAPHIC_BASE& entity)
{
    ReportingMemory([&] {
        switch (entity.m_nEntityType) {
        case DXF_ENTITY_LINE:
            return OnLine(static_cast<DXF_GRAPHIC_LINE&>(entity));
        case DXF_ENTITY_ARC:
            return OnArc(static_cast<DXF_GRAPHIC_ARC&>(entity));
        case DXF_ENTITY_CIRCLE:
            return OnCircle(static_cast<DXF_GRAPHIC_CIRCLE&>(entity));
        case DXF_ENTITY_ELLIPSE:
            return OnEllipse(static_cast<DXF_GRAPHIC_ELLIPSE&>(entity));
        case DXF_ENTITY_LWPOLYLINE:
            return OnLWPolyline(static_cast<DXF_GRAPHIC_LWPOLYLINE&>(entity));
        case DXF_ENTITY_TEXT:
            return OnText(static_cast<DXF_GRAPHIC_TEXT&>(entity));
        case DXF_ENTITY_MTEXT:
            return OnMText(static_cast<DXF_GRAPHIC_MTEXT&>(entity));
        case DXF_ENTITY_INSERT:
            return OnInsert(static_cast<DXF_GRAPHIC_INSERT&>(entity));
        case DXF_ENTITY_DIMENSION:
            return OnDimension(static_cast<DXF_GRAPHIC_DIMENSION&>(entity));
        default:
            return;
        }
    });
}
