// A block definition.
#pragma once

#include "base/DXF_HANDLE.h"
#include "base/DXF_LIST.h"
#include "entities/DXF_GRAPHIC_BASE.h"

#include <cstdint>

struct DXF_BLOCKS_BLOCK {
    std::int32_t m_nObjectType = 1;                        // 1 in every block
    DXF_HANDLE m_strHandle;                                // 5
    DXF_STRING m_strAppData;                               // 102
    DXF_HANDLE m_strOwnerHandle;                           // 330
    DXF_STRING m_strSubclass;                              // stays empty: 100 is not read into it
    DXF_STRING m_strLayer;                                 // 8
    DXF_STRING m_strName;                                  // 2, what an INSERT refers to
    std::int32_t m_nFlags = 0;                             // 70
    double m_dBaseX = 0.0, m_dBaseY = 0.0, m_dBaseZ = 0.0; // 10, 20, 30
    DXF_STRING m_strName3;                                 // 3, the name once more
    DXF_STRING m_strXrefPath;                              // 1
    DXF_STRING m_strDescription;                           // 4
    DXF_LIST<DXF_GRAPHIC_BASE*> m_entities;                // in file order
    bool hasNestedInsert = false;                          // set by EmitCallbacks: holds an INSERT
};
