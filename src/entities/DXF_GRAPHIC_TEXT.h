// Single-line and multi-line texts. Lengths in drawing units, angles in degrees.
#pragma once

#include "entities/DXF_GRAPHIC_BASE.h"

#include <cstdint>

struct DXF_GRAPHIC_TEXT : DXF_GRAPHIC_BASE {
    DXF_GRAPHIC_TEXT() : DXF_GRAPHIC_BASE(DXF_ENTITY_TEXT) {}

    double m_dInsertX = 0.0, m_dInsertY = 0.0, m_dInsertZ = 0.0; // 10, 20, 30
    double m_dHeight = 5.0;                                      // 40
    DXF_STRING m_strText;                                        // 1, raw
    double m_dRotation = 0.0;                                    // 50
    double m_dScaleX = 1.0;                                      // 41
    double m_dOblique = 0.0;                                     // 51
    DXF_STRING m_strStyle;                                       // 7, raw
    std::int32_t m_nGenerationFlags = 0;                         // 71, 2 mirrored in x, 4 in y
    std::int32_t m_nHorzAlign = 0; // 72: 0 left, 1 centre, 2 right, 3 aligned, 4 middle, 5 fit
    double m_dAlignX = 0.0, m_dAlignY = 0.0, m_dAlignZ = 0.0; // 11, 21, 33 (31 is unknown here)
    std::int32_t m_nVertAlign = 0;                            // 73: 0 baseline, 1 bottom, 2 middle, 3 top
};

struct DXF_GRAPHIC_MTEXT : DXF_GRAPHIC_BASE {
    DXF_GRAPHIC_MTEXT() : DXF_GRAPHIC_BASE(DXF_ENTITY_MTEXT) {}

    double m_dInsertX = 0.0, m_dInsertY = 0.0, m_dInsertZ = 0.0; // 10, 20, 30
    double m_dHeight = 5.0;                                      // 40
    double m_dRefWidth = 0.0;                                    // 41
    std::int32_t m_nAttachment = 1;                              // 71, 1 top left ... 9 bottom right
    std::int32_t m_nDrawingDirection = 0;                        // 72
    DXF_STRING m_strText;                                        // 1, raw, the last one
    DXF_STRING m_strTextMore;                                    // 3, raw, the last chunk
    DXF_STRING m_strStyle;                                       // 7, raw
    double m_dDirX = 0.0, m_dDirY = 0.0, m_dDirZ = 0.0;          // 11, 21, 31
    double m_dCharWidth = 0.0;                                   // 42
    double m_dRectHeight = 0.0;                                  // 43
    double m_dRotation = 0.0;                                    // 50
    std::int32_t m_nLineSpacingStyle = 0;                        // 73
    double m_dLineSpacing = 1.0;                                 // 44
    std::int32_t m_nBackgroundFill = 0;                          // 90
    std::int32_t m_nBackgroundTrueColor = 0;                     // 420 to 439, colour names included
    std::int32_t m_nBackgroundColor = 0;                         // 63
    double m_dBackgroundTransparency = 0.0;                      // 441
    std::int32_t m_nColumnType = 0;                              // 75
    std::int32_t m_nColumnCount = 0;                             // 76
    std::int32_t m_nColumnFlowReversed = 0;                      // 78
    double m_dColumnAutoHeight = 0.0;                            // 79
    double m_dColumnWidth = 0.0;  // 48, which is therefore no line type scale here
    double m_dColumnGutter = 0.0; // 49
};
