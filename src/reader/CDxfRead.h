// The DXF reader.
#pragma once

#include "base/CDxfStore.h"
#include "base/DXF_LIST.h"
#include "host/ReportKinds.h"
#include "input/CDxfSource.h"
#include "input/CDxfStream.h"
#include "reader/CDxfMessage.h"
#include "reader/CDxfNameIndex.h"
#include "reader/DXF_TABLES.h"
#include "reader/EntityTypes.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <new>
#include <stdexcept>
#include <string_view>
#include <vector>

struct DXF_BLOCKS_BLOCK;
struct DXF_GRAPHIC_BASE;
#define DXF_DECLARE_RECORD(number, TYPE, Callback, constness) struct DXF_GRAPHIC_##TYPE;
DXF_DRAWN_TYPES(DXF_DECLARE_RECORD)
#undef DXF_DECLARE_RECORD

template <class Record, std::size_t count>
class CDxfFieldTable;

// Records of entities in file order, owned by the reader.
using DXF_ENTITY_LIST = DXF_LIST<DXF_GRAPHIC_BASE*>;

// The colour of every lookup without a result: white, as 0x00BBGGRR.
inline constexpr std::uint32_t kDxfWhite = 0xFFFFFF;

// How the reading of a record's group codes ended: at the code 0 or 100 that its table lists as an end, or
// without one.
enum DXF_END : int {
    DXF_END_ZERO = 0,
    DXF_END_MARKER = 100,
    DXF_END_OF_FILE = -1,
    DXF_END_BAD_CODE = -2,
};

// What CDxfRead has for each type.
#define DXF_DECLARE_CALLBACK(number, TYPE, Callback, constness)                                              \
    virtual void On##Callback(constness DXF_GRAPHIC_##TYPE& record);
#define DXF_DECLARE_READER(number, TYPE, Callback, constness)                                                \
    bool ReadENTITIES_##TYPE(CDxfStream& stream, DXF_ENTITY_LIST& list);

// Reads a DXF file into records and then passes each record to a callback. One object reads one file.
//
// Every problem of the file becomes one OnError call; reading goes on where it can. A record is in its list
// before its fields are read, so one that a fault cut short is kept and drawn. All records live until the
// reader is destroyed.
class CDxfRead {
public:
    CDxfRead() = default;
    CDxfRead(const CDxfRead&) = delete;
    CDxfRead& operator=(const CDxfRead&) = delete;

    // The callbacks, empty here, one for each type that is drawn. Their order is fixed. Records are borrowed;
    // an arc's callback may normalise the record's angles in place.
    DXF_DIMENSION_TYPE(DXF_DECLARE_CALLBACK)
    // A problem: code is 0, or 1 for an unknown group code; kind a DXF_ERROR_KIND; message a finished text,
    // valid during the call; extra 0. The result is ignored.
    virtual int OnError(std::uint32_t code, int kind, const wchar_t* message, std::int64_t extra);
    virtual void OnBlockBegin(const DXF_BLOCKS_BLOCK& block);
    virtual void OnBlockEnd(const DXF_BLOCKS_BLOCK& block);
    DXF_DRAWN_TYPES_BUT_DIMENSION(DXF_DECLARE_CALLBACK)

    // Reads the file at path, a zero-terminated name in the system's ANSI code page, and emits the callbacks.
    // A file that cannot be opened gives one OnError call and nothing else.
    void ReadDxfFile(const char* path);

    // As ReadDxfFile, from a source that is open.
    void ReadDxfSource(CDxfSource& source);

    // Fills colorTable with the 256 colours; it appends.
    void InitColorTable();

    // The section readers. Each takes the stream where the driver or its caller leaves it and returns where
    // the driver goes on; their messages contain these names.
    void ReadTABLES(CDxfStream& stream);
    bool ReaTABLES_COMMON(DXF_TABLES_HEADER& table, CDxfStream& stream, std::string_view typeName);
    int ReaTABLES_LAYER(DXF_TABLES_LAYER& entry, CDxfStream& stream);
    int ReaTABLES_LTYPE(DXF_TABLES_LTYPE& entry, CDxfStream& stream);
    int ReaTABLES_BLOCK_RECORD(DXF_TABLES_BLOCK_RECORD& entry, CDxfStream& stream);

    void ReadBLOCKS(CDxfStream& stream);
    DXF_BLOCKS_BLOCK* ReadBLOCKS_BLOCK(CDxfStream& stream);

    // Reads one entity whose type name has been read (valid until the next line is) into list, up to and
    // including the "0" that ends it.
    void ReadENTITIES(CDxfStream& stream, std::string_view typeName, DXF_ENTITY_LIST& list);

    // The entity readers, ReadENTITIES_LINE and so on: true when the entity ended at a "0", false at the end
    // of the file and at a group-code line that is no integer.
    DXF_DRAWN_TYPES(DXF_DECLARE_READER)
    bool ReadENTITIES_DIMENSION_SWITCH(CDxfStream& stream, DXF_GRAPHIC_DIMENSION& dimension,
                                       std::string_view marker);

    // Skips an entity to its end: reads and drops pairs up to a code 0.
    bool Read_UNKNOWN(CDxfStream& stream);

    // Stores the value of a group code that all entities share; false, after a message, for any other code.
    // value is the value line, trimmed here.
    bool ReadENTITIES_COMMON(std::int32_t code, CDxfLine value, DXF_GRAPHIC_BASE& record, CDxfStream& stream);

    // True for the names that begin an entity within a block.
    static bool IsEntityTypeName(std::string_view name);

    // Passes every block and then every entity to its callback: blocks without an INSERT first, then blocks
    // with one, each kind in file order.
    void EmitCallbacks();

    // Lookups by exact name: the first entry of the kind in file order, in whatever table. An
    // empty name finds nothing. Indexed: the time does not depend on the number of entries.
    std::uint32_t GetLayerColor(std::wstring_view name);
    const DXF_TABLES_LAYER* FindLayer(std::wstring_view name);
    const DXF_TABLES_LTYPE* FindLineType(std::wstring_view name);

    // The colour of a colour number from 1 to 255, white for any other.
    std::uint32_t GetPaletteColor(std::int32_t number) const;

    std::int32_t lineCount = 0;            // lines read so far
    std::vector<std::uint32_t> colorTable; // 0x00BBGGRR by colour number
    DXF_LIST<DXF_TABLES_HEADER*> tables;
    DXF_LIST<DXF_BLOCKS_BLOCK*> blocks;
    DXF_ENTITY_LIST entities;

    // For readers and the handlers of their fields.

    // The next line, untrimmed and counted; valid until the next call.
    CDxfLine ReadLine(CDxfStream& stream)
    {
        const CDxfLine line = stream.getline();
        CountLine();
        if (stream.HasTrouble()) [[unlikely]]
            ReportTrouble(stream);
        return line;
    }

    // The next line, trimmed.
    std::string_view ReadTrimmed(CDxfStream& stream);

    // Reads a group code; false, after the message with the trimmed line and the line number, when the line
    // has none.
    bool ReadCode(CDxfStream& stream, std::int32_t& code, const wchar_t* message);

    // Reads the pairs of a record by its table until a code that the table lists as an end; pairs of other
    // codes go to other(code, line), the value line untrimmed.
    template <class Record, std::size_t count, class Other>
    DXF_END ReadFields(CDxfStream& stream, Record& record, const CDxfFieldTable<Record, count>& table,
                       const wchar_t* message, const Other& other);

    // Appends a brace-delimited group to text: its opening value and then its lines, up to the line that
    // equals code followed by "}".
    void ReadGroup(CDxfStream& stream, DXF_STRING& text, std::string_view value, std::string_view code);

    void Report(int kind, const wchar_t* format, std::initializer_list<CDxfMessageArgument> arguments);

    // Does a piece of work. When memory is short it ends there, with everything that it had done in place,
    // and the shortage is reported.
    template <class Work>
    void ReportingMemory(const Work& work)
    {
        try {
            work();
        } catch (const std::bad_alloc&) {
            ReportMemory();
        } catch (const std::length_error&) { // a text larger than the address space
            ReportMemory();
        }
    }

    // Where everything that is read is kept.
    CDxfStore store;

private:
    void ReadSections(CDxfStream& stream);
    void ReadSection(CDxfStream& stream, std::string_view name);
    void ReadSectionTABLES(CDxfStream& stream);
    void ReadSectionENTITIES(CDxfStream& stream);
    void SkipToENDSEC(CDxfStream& stream);
    bool SkipPairs(CDxfStream& stream, const wchar_t* message);
    void ReadBlockEntities(CDxfStream& stream, DXF_BLOCKS_BLOCK& block);
    // The count may wrap.
    void CountLine() { lineCount = static_cast<std::int32_t>(static_cast<std::uint32_t>(lineCount) + 1); }
    bool ReadCodeOfOtherLine(CDxfStream& stream, std::int32_t& code, const wchar_t* message);
    bool TakeOtherCode(std::string_view line, std::int32_t& code, const wchar_t* message);
    void ReportUnknownCode(std::int32_t code, std::string_view value, const DXF_GRAPHIC_BASE& record);
    void ReportTrouble(CDxfStream& stream);
    void ReportMemory();
    bool ReadAfterTable(CDxfStream& stream, bool hadEntries);
    DXF_TABLES_COMMON* NewTableEntry(DXF_TABLES_HEADER& table, std::string_view typeName);
    int ReadTableEntry(DXF_TABLES_COMMON& entry, CDxfStream& stream);
    void IndexTables();
    void EmitBlock(const DXF_BLOCKS_BLOCK& block);
    void EmitEntity(DXF_GRAPHIC_BASE& entity);

    // Indexes of the lookups, built when first asked for and again when a table has been read since.
    CDxfNameIndex<DXF_TABLES_LAYER> m_layers;
    CDxfNameIndex<DXF_TABLES_LTYPE> m_lineTypes;
    bool m_areTablesIndexed = false;
};

#undef DXF_DECLARE_CALLBACK
#undef DXF_DECLARE_READER
