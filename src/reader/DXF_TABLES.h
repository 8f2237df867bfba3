// The records of the TABLES section.
#pragma once

#include "base/DXF_HANDLE.h"
#include "base/DXF_LIST.h"
#include "base/DXF_STRING.h"

#include <cstdint>

// What a table entry is; the gaps in the numbers are kept.
enum DXF_TABLES_KIND : std::uint32_t {
    DXF_TABLES_KIND_NONE = 0,
    DXF_TABLES_KIND_BLOCK_RECORD = 2,
    DXF_TABLES_KIND_LAYER = 4,
    DXF_TABLES_KIND_LTYPE = 5,
};

// An entry of a table. Which record it is, m_nTableKind says.
struct DXF_TABLES_COMMON {
    virtual ~DXF_TABLES_COMMON() = default;

    std::uint32_t m_nTableKind = DXF_TABLES_KIND_NONE;
    DXF_HANDLE m_strHandle;         // 5
    DXF_HANDLE m_strDimStyleHandle; // 105, the handle as DIMSTYLE entries give it
    DXF_STRING m_strAppData;        // 102, the lines of the application groups
    DXF_HANDLE m_strOwnerHandle;    // 330
    DXF_STRING m_strSpare;          // never filled
    DXF_STRING m_strFirstSubclass;  // 100, the marker that decides which reader gets the entry
};

struct DXF_TABLES_LAYER : DXF_TABLES_COMMON {
    DXF_TABLES_LAYER() { m_nTableKind = DXF_TABLES_KIND_LAYER; }

    DXF_STRING m_strSubclass;       // 100
    DXF_STRING m_strName;           // 2
    std::int32_t m_nFlags = 0;      // 70
    std::int32_t m_nColor = 0;      // 62; negative when the layer is off
    DXF_STRING m_strLineType;       // 6
    std::int32_t m_nPlotting = 0;   // 290
    std::int32_t m_nLineWeight = 0; // 370, hundredths of a millimetre
    DXF_HANDLE m_strPlotStyle;      // 390
    DXF_HANDLE m_strMaterial;       // 347
};

struct DXF_TABLES_LTYPE : DXF_TABLES_COMMON {
    DXF_TABLES_LTYPE() { m_nTableKind = DXF_TABLES_KIND_LTYPE; }

    DXF_STRING m_strSubclass;      // 100
    DXF_STRING m_strName;          // 2
    std::int32_t m_nFlags = 0;     // 70
    DXF_STRING m_strDescription;   // 3
    std::int32_t m_nAlignment = 0; // 72
    std::int32_t m_nDashCount = 0; // 73, as the file states it
    double m_dPatternLength = 0.0; // 40
    DXF_LIST<double> m_dashes;     // 49, drawing units; negative for a gap, 0 for a dot
};

// Every value is kept as text, numbers included.
struct DXF_TABLES_BLOCK_RECORD : DXF_TABLES_COMMON {
    DXF_TABLES_BLOCK_RECORD() { m_nTableKind = DXF_TABLES_KIND_BLOCK_RECORD; }

    DXF_STRING m_strSubclass;         // 100
    DXF_STRING m_strName;             // 2
    DXF_HANDLE m_strLayout;           // 340
    DXF_STRING m_strInsertUnits;      // 70
    DXF_STRING m_strExplodability;    // 280
    DXF_STRING m_strScalability;      // 281
    DXF_STRING m_strLineWeight;       // 370
    DXF_STRING m_strXDataApplication; // 1001, the last one
    DXF_STRING m_strXDataString;      // 1000, the last one
    DXF_STRING m_strXData;            // 1002, the lines of the extended-data groups
};

// One TABLE with its entries in file order.
struct DXF_TABLES_HEADER {
    DXF_STRING m_strName;           // 2
    DXF_HANDLE m_strHandle;         // 5
    DXF_STRING m_strAppData;        // 102
    DXF_HANDLE m_strOwnerHandle;    // 330
    DXF_STRING m_strSubclass;       // 100, the last one
    std::int32_t m_nMaxEntries = 0; // 70; nothing is sized by it
    DXF_LIST<DXF_TABLES_COMMON*> m_entries;
};
