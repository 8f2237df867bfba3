// What all entities share.
#pragma once

#include "base/DXF_HANDLE.h"
#include "base/DXF_STRING.h"
#include "reader/EntityTypes.h"

#include <cstdint>

// What a record is. Code that goes through records switches on it and skips any other number.
enum DXF_ENTITY_TYPE : std::int32_t {
    DXF_ENTITY_NONE = 0,
#define DXF_NUMBER(number, TYPE, Callback, constness) DXF_ENTITY_##TYPE = (number),
    DXF_DRAWN_TYPES(DXF_NUMBER)
#undef DXF_NUMBER
};

// What few entities have: one of thirty, in forty real drawings. A record without any of it refers to
// kDxfNoRare, which holds the default values; that takes a record of a line from 232 bytes to 128 (one that
// has some of it to 240), and with the handles in place an import of 100 MB from 121 MB of memory to 77.
struct DXF_GRAPHIC_RARE {
    DXF_STRING m_strAppData;            // 102, the lines of the application groups
    std::int32_t m_nPaperSpace = 0;     // 67, 1 in paper space
    std::int32_t m_nProxyByteCount = 0; // 92
    DXF_STRING m_strLayout;             // 410
    DXF_HANDLE m_strMaterial;           // 347
    double m_dLineTypeScale = 1.0;      // 48, read as an integer: 0.5 becomes 0 (quirk 36)
    DXF_STRING m_strProxyData;          // 310, the last chunk
    DXF_STRING m_strColorName;          // 430
    DXF_STRING m_strTransparency;       // 440, kept as text
    DXF_HANDLE m_strPlotStyle;          // 390
    std::int32_t m_nShadowMode = 0;     // 284

    // Of the kinds that have them; never filled in an ellipse and a text, whose 39 is unknown.
    double m_dThickness = 0.0;                                            // 39
    double m_dExtrusionX = 0.0, m_dExtrusionY = 0.0, m_dExtrusionZ = 1.0; // 210, 220, 230
};

inline const DXF_GRAPHIC_RARE kDxfNoRare;

// The group codes that every entity may have. Records live in their reader's storage, which is freed without
// running destructors: no member of a record holds anything of its own.
struct DXF_GRAPHIC_BASE {
    explicit DXF_GRAPHIC_BASE(DXF_ENTITY_TYPE type = DXF_ENTITY_NONE) : m_nEntityType(type) {}
    virtual ~DXF_GRAPHIC_BASE() = default;

    DXF_HANDLE m_strHandle;                       // 5
    DXF_HANDLE m_strOwnerHandle;                  // 330
    DXF_STRING m_strSubclass;                     // 100, the last marker read
    DXF_STRING m_strLayer;                        // 8
    DXF_STRING m_strLineType;                     // 6, empty for the layer's
    const DXF_GRAPHIC_RARE* m_rare = &kDxfNoRare; // never null
    std::int32_t m_nColor = 0;                    // 62; 0 by block, 1 to 255 palette, 256 by layer
    std::int32_t m_nLineWeight = -1; // 370, hundredths of a millimetre; -1 by layer, -2 by block, -3 default
    std::int32_t m_nVisibility = 0;  // 60, 1 invisible
    std::int32_t m_nTrueColor = 0;   // 420, 0x00RRGGBB
    std::int32_t m_nEntityType;      // a DXF_ENTITY_TYPE
};
