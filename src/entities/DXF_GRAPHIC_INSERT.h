// A reference to a block.
#pragma once

#include "entities/DXF_GRAPHIC_BASE.h"

#include <cstdint>

struct DXF_GRAPHIC_INSERT : DXF_GRAPHIC_BASE {
    DXF_GRAPHIC_INSERT() : DXF_GRAPHIC_BASE(DXF_ENTITY_INSERT) {}

    std::int32_t m_nAttributesFollow = 0;                        // 66
    DXF_STRING m_strBlockName;                                   // 2
    double m_dInsertX = 0.0, m_dInsertY = 0.0, m_dInsertZ = 0.0; // 10, 20, 30
    double m_dScaleX = 1.0, m_dScaleY = 1.0, m_dScaleZ = 1.0;    // 41, 42, 43
    double m_dRotation = 0.0;                                    // 50, degrees
    std::int32_t m_nColumnCount = 1;                             // 70
    std::int32_t m_nRowCount = 1;                                // 71
    std::int32_t m_nColumnSpacing = 0;                           // 44, read as an integer (quirk 83)
    std::int32_t m_nRowSpacing = 0;                              // 45, likewise
};
