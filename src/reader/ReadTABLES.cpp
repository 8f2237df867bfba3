// The TABLES section. Tables and entries are read in loops, however many there are.
#include "reader/ReadFields.h"

#include <algorithm>
#include <array>

namespace {

void ReadHeaderGroup(CDxfRead& reader, CDxfStream& stream, DXF_TABLES_HEADER& table, CDxfLine value)
{
    reader.ReadGroup(stream, table.m_strAppData, Trim(value), "102");
}

void ReadEntryGroup(CDxfRead& reader, CDxfStream& stream, DXF_TABLES_COMMON& entry, CDxfLine value)
{
    reader.ReadGroup(stream, entry.m_strAppData, Trim(value), "102");
}

// In a block record only the extended data has groups: its 102 pairs are pairs like any other.
void ReadXDataGroup(CDxfRead& reader, CDxfStream& stream, DXF_TABLES_BLOCK_RECORD& entry, CDxfLine value)
{
    reader.ReadGroup(stream, entry.m_strXData, Trim(value), "1002");
}

void ReadDash(CDxfRead& reader, CDxfStream&, DXF_TABLES_LTYPE& entry, CDxfLine value)
{
    entry.m_dashes.Add(reader.store, ParseLineReal(value));
}

using HEADER = DXF_TABLES_HEADER;
constexpr auto kTableFields = DxfFields<HEADER>({
    End(0),
    KeptOnce(2, &HEADER::m_strName),
    {5, &HEADER::m_strHandle},
    KeptOnce(100, &HEADER::m_strSubclass),
    {102, ReadHeaderGroup},
    {330, &HEADER::m_strOwnerHandle},
    {70, &HEADER::m_nMaxEntries},
});

using ENTRY = DXF_TABLES_COMMON;
// The first code 100 passes an entry to its kind's reader; a code 0 before it ends nothing (quirk 16).
constexpr auto kEntryFields = DxfFields<ENTRY>({
    End(100),
    {5, &ENTRY::m_strHandle},
    {105, &ENTRY::m_strDimStyleHandle},
    {102, ReadEntryGroup},
    {330, &ENTRY::m_strOwnerHandle},
});

using LAYER = DXF_TABLES_LAYER;
constexpr auto kLayerFields = DxfFields<LAYER>({
    End(0),
    KeptOnce(100, &LAYER::m_strSubclass),
    KeptOnce(2, &LAYER::m_strName),
    {70, &LAYER::m_nFlags},
    {62, &LAYER::m_nColor},
    KeptOnce(6, &LAYER::m_strLineType),
    {290, &LAYER::m_nPlotting},
    {370, &LAYER::m_nLineWeight},
    {390, &LAYER::m_strPlotStyle},
    {347, &LAYER::m_strMaterial},
});

using LTYPE = DXF_TABLES_LTYPE;
constexpr auto kLineTypeFields = DxfFields<LTYPE>({
    End(0),
    KeptOnce(100, &LTYPE::m_strSubclass),
    KeptOnce(2, &LTYPE::m_strName),
    {70, &LTYPE::m_nFlags},
    {3, &LTYPE::m_strDescription},
    {72, &LTYPE::m_nAlignment},
    {73, &LTYPE::m_nDashCount},
    {40, &LTYPE::m_dPatternLength},
    {49, ReadDash},
});

using RECORD = DXF_TABLES_BLOCK_RECORD;
constexpr auto kBlockRecordFields = DxfFields<RECORD>({
    End(0),
    KeptOnce(100, &RECORD::m_strSubclass),
    KeptOnce(2, &RECORD::m_strName),
    {340, &RECORD::m_strLayout},
    KeptOnce(70, &RECORD::m_strInsertUnits),
    KeptOnce(280, &RECORD::m_strExplodability),
    KeptOnce(281, &RECORD::m_strScalability),
    KeptOnce(370, &RECORD::m_strLineWeight),
    KeptOnce(1001, &RECORD::m_strXDataApplication),
    {1000, &RECORD::m_strXDataString},
    {1002, ReadXDataGroup},
});

constexpr auto kIgnore = [](std::int32_t, std::string_view) {};

constexpr std::array<std::string_view, 6> kTablesWithoutRecords = {"APPID", "DIMSTYLE", "STYLE",
                                                                   "UCS",   "VIEW",     "VPORT"};

} // namespace

// A TABLES section without a table runs on: the "ENDSEC" in place of "TABLE" is not compared, so the section
// after it is skipped as far as its own "ENDSEC" (quirk 14).
void CDxfRead::ReadSectionTABLES(CDxfStream& stream)
{
    if (ReadTrimmed(stream) == "0" && ReadTrimmed(stream) == "TABLE")
        ReadTABLES(stream);
    else
        SkipToENDSEC(stream);
}

void CDxfRead::ReadTABLES(CDxfStream& stream)
{
    bool isTable = true;
    while (isTable) {
        DXF_TABLES_HEADER* const table = store.New<DXF_TABLES_HEADER>();
        tables.Add(store, table);
        if (ReadFields(stream, *table, kTableFields, L"ReadTABLES() Failed to read integer from '%s' Line:%d",
                       kIgnore) != DXF_END_ZERO)
            return;
        const std::string_view typeName = ReadTrimmed(stream);
        const bool hasEntries = typeName != "ENDTAB";
        if (hasEntries)
            ReaTABLES_COMMON(*table, stream, typeName);
        isTable = ReadAfterTable(stream, hasEntries);
    }
}

// Reads what follows an "ENDTAB"; true when it is "0", "TABLE". A line that is out of step takes one more
// with it, except one in place of the "0" after a table with entries (quirk 127).
bool CDxfRead::ReadAfterTable(CDxfStream& stream, bool hadEntries)
{
    if (ReadTrimmed(stream) == "0") {
        const std::string_view next = ReadTrimmed(stream);
        if (next == "TABLE")
            return true;
        if (next == "ENDSEC")
            return false;
    } else if (hadEntries) {
        return false;
    }
    ReadLine(stream);
    return false;
}

bool CDxfRead::ReaTABLES_COMMON(DXF_TABLES_HEADER& table, CDxfStream& stream, std::string_view typeName)
{
    for (bool readEntry = false;; readEntry = true) { // an entry a round
        DXF_TABLES_COMMON* const entry = NewTableEntry(table, typeName);
        if (entry == nullptr) {
            while (!stream.eof() && ReadTrimmed(stream) != "ENDTAB") {
            }
            return readEntry;
        }
        if (ReadFields(stream, *entry, kEntryFields,
                       L"ReaTABLES_COMMON() Failed to read integer from '%s', Line:%d",
                       kIgnore) != DXF_END_MARKER)
            return readEntry;
        entry->m_strFirstSubclass = store.KeepOnce(ReadTrimmed(stream));
        ReadTableEntry(*entry, stream);
        m_areTablesIndexed = false;
        // However the entry ended, the next line counts as a type name.
        typeName = ReadTrimmed(stream);
        if (typeName == "ENDTAB")
            return true;
    }
}

// The record of a table entry, in its table; null for the tables that are not kept and, with a message, for
// unknown ones.
DXF_TABLES_COMMON* CDxfRead::NewTableEntry(DXF_TABLES_HEADER& table, std::string_view typeName)
{
    DXF_TABLES_COMMON* entry = nullptr;
    if (typeName == "LAYER")
        entry = store.New<DXF_TABLES_LAYER>();
    else if (typeName == "LTYPE")
        entry = store.New<DXF_TABLES_LTYPE>();
    else if (typeName == "BLOCK_RECORD")
        entry = store.New<DXF_TABLES_BLOCK_RECORD>();
    else if (std::find(kTablesWithoutRecords.begin(), kTablesWithoutRecords.end(), typeName) ==
             kTablesWithoutRecords.end())
        Report(DXF_ERROR_TABLE, L"ReaTABLES_COMMON() Unknown table name '%s', Line:%d",
               {typeName, lineCount});
    if (entry != nullptr)
        table.m_entries.Add(store, entry);
    return entry;
}

int CDxfRead::ReadTableEntry(DXF_TABLES_COMMON& entry, CDxfStream& stream)
{
    switch (entry.m_nTableKind) {
    case DXF_TABLES_KIND_LAYER:
        return ReaTABLES_LAYER(static_cast<DXF_TABLES_LAYER&>(entry), stream);
    case DXF_TABLES_KIND_LTYPE:
        return ReaTABLES_LTYPE(static_cast<DXF_TABLES_LTYPE&>(entry), stream);
    default:
        return ReaTABLES_BLOCK_RECORD(static_cast<DXF_TABLES_BLOCK_RECORD&>(entry), stream);
    }
}

int CDxfRead::ReaTABLES_LAYER(DXF_TABLES_LAYER& entry, CDxfStream& stream)
{
    return ReadFields(stream, entry, kLayerFields,
                      L"ReaTABLES_LAYER() Failed to read integer from '%s', Line:%d",
                      kIgnore) == DXF_END_ZERO;
}

int CDxfRead::ReaTABLES_LTYPE(DXF_TABLES_LTYPE& entry, CDxfStream& stream)
{
    return ReadFields(stream, entry, kLineTypeFields,
                      L"ReaTABLES_LTYPE() Failed to read integer from '%s', Line:%d",
                      kIgnore) == DXF_END_ZERO;
}

int CDxfRead::ReaTABLES_BLOCK_RECORD(DXF_TABLES_BLOCK_RECORD& entry, CDxfStream& stream)
{
    return ReadFields(stream, entry, kBlockRecordFields,
                      L"ReaTABLES_BLOCK_RECORD() Failed to read integer from '%s', Line:%d",
                      kIgnore) == DXF_END_ZERO;
}
