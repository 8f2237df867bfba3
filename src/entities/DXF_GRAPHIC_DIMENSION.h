// A dimension: a generic entity and its subclass parts.
#pragma once

#include "base/DXF_LIST.h"
#include "entities/DXF_GRAPHIC_BASE.h"

struct DXF_GRAPHIC_DIMENSION_BASE;

// Which parts there are is decided by the subclass markers (100) alone, never by the dimension type (70).
struct DXF_GRAPHIC_DIMENSION : DXF_GRAPHIC_BASE {
    DXF_GRAPHIC_DIMENSION() : DXF_GRAPHIC_BASE(DXF_ENTITY_DIMENSION) {}

    DXF_LIST<DXF_GRAPHIC_DIMENSION_BASE*> m_parts; // in the order of their markers
};
