#include "prepare/drawing/ReadDrawing.h"

#include "prepare/drawing/Encoding.h"
#include "prepare/drawing/EntityReader.h"
#include "prepare/drawing/Fields.h"
#include "prepare/drawing/ObjectReader.h"
#include "prepare/drawing/ReadTables.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace prepare {

namespace {

constexpr auto kBlock = Fields<Block>({
    {1, &Block::path},
    Field<Block>(2, &Block::name).OnlyFirst(),
    {8, &Block::layer},
    {10, &Block::base},
    {70, &Block::flags},
    {102, SkipGroup<Block>},
    Field<Block>(330, &Block::record).OnlyFirst(),
});

constexpr std::string_view kSections[] = {"HEADER", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"};

// Records that say by themselves which section they belong to.
constexpr std::string_view kOfTablesOrBlocks[] = {
    "APPID", "BLOCK",      "BLOCK_RECORD", "DIMSTYLE", "ENDBLK", "ENDTAB", "LAYER",
    "LTYPE", "MLINESTYLE", "STYLE",        "TABLE",    "UCS",    "VIEW",   "VPORT",
};

// The objects that are read, and those that are in every drawing.
constexpr std::string_view kObjects[] = {
    "ACDBDICTIONARYWDFLT", "ACDBPLACEHOLDER", "DICTIONARY",  "DICTIONARYVAR", "LAYOUT", "MATERIAL",
    "SORTENTSTABLE",       "SPATIAL_FILTER",  "VISUALSTYLE", "XRECORD",
};

template <std::size_t count>
bool IsAmong(std::string_view record, const std::string_view (&names)[count])
{
    return std::find(std::begin(names), std::end(names), record) != std::end(names);
}

constexpr std::int32_t kVariableName = 9; // in the header

// What the end of the file is called: the pair that says so ends it for PairReader, too.
constexpr std::string_view kEnd = "EOF";

// One pass over a file. What ends a section is unread, so that each function begins at a record of its own.
class Pass {
public:
    Pass(CDxfSource& source, std::string_view encoding, Drawing& drawing, EntitySink* sink, Report* report)
        : m_reader(source, encoding, drawing, report), m_entities(m_reader), m_objects(m_reader),
          m_drawing(drawing), m_sink(sink), m_report(report), m_reportOfEntities(report)
    {
    }

    // Everything; the entities go to the sink if they can. True when all went there.
    bool ReadIndex();
    // The entities alone; what is found in them goes to report, if it is not null.
    void ReadEntities(Report* report);

    bool HasFailed() const { return m_reader.Pairs().HasFailed(); }

private:
    std::string_view NextRecord();
    std::string_view NextSection();
    bool ReadStart(std::string_view record);
    void NoteSecond(std::string_view section);
    void ReadSection(std::string_view name);
    void ReadHeaderSection();
    void ReadVariables();
    void ReadTablesSection();
    void ReadObjectsSection();
    void ReadBlocksSection();
    void ReadBlock();
    void ReadBlockEntities(Block& block);
    void KeepBlock(std::unique_ptr<Block> block);
    bool MayGiveEntities();
    void GiveEntity(NameId type);
    void ReadEntitiesSection();
    void GoOnWithObjects();
    void TakeHeader();
    void TakeObject(std::string_view type);
    void TakeEntity();
    void TakeBlock();
    void ReadOutsideOfSections(std::string_view record);
    void ReadLooseRecords();
    void EndWithoutEnd();
    bool IsSectionEnd(std::string_view record);
    void GiveLayoutBlocks();
    void KnowCodePage();
    void KnowRecords();
    void SortBlocks();
    void NotePairs();

    RecordReader m_reader;
    EntityReader m_entities;
    ObjectReader m_objects;
    Drawing& m_drawing;
    EntitySink* m_sink; // null: entities are skipped
    Report* m_report;
    Report* m_reportOfEntities;                        // of two passes, the second has only this one
    std::array<bool, std::size(kSections)> m_hasMet{}; // each of them
    bool m_isIndex = false;
    bool m_hasTables = false;
    bool m_hasBlocks = false;
    bool m_hasObjects = false;
    bool m_hasGivenLayouts = false;
    bool m_hasSkippedEntities = false;
    bool m_isInLooseBlock = false; // in a block outside of sections
};

// The type of the next record, kEnd at the end of the file.
std::string_view Pass::NextRecord()
{
    while (m_reader.NextPair())
        if (m_reader.Code() == 0)
            return m_reader.Word();
    return kEnd;
}

// The name of the next section; empty at the end of the file. Of the records outside of sections, entities
// are taken as those of ENTITIES.
std::string_view Pass::NextSection()
{
    while (m_reader.NextPair()) {
        if (m_reader.Code() == kVariableName && m_isIndex && m_reader.Word().starts_with('$'))
            TakeHeader(); // up to a record, which comes next
        else if (m_reader.Code() == 0 && ReadStart(m_reader.Word()))
            return m_reader.Word();
    }
    return {};
}

// Reads the start of a section up to its name, or a record outside of sections. True at the name.
bool Pass::ReadStart(std::string_view record)
{
    if (record != "SECTION") {
        ReadOutsideOfSections(record);
        return false;
    }
    m_isInLooseBlock = false;
    m_drawing.hasSections = true;
    if (m_reader.NextField() && m_reader.Code() == 2)
        return !Trim(m_reader.Value()).empty();
    m_reader.Unread();
    return false;
}

void Pass::EndWithoutEnd()
{
    m_reader.NoteMissingEnd("file", "a section ends without ENDSEC", m_reader.Line());
    m_reader.Unread();
}

// True at the end of a section; where that is missing, the section ends before the next one.
bool Pass::IsSectionEnd(std::string_view record)
{
    if (record == "ENDSEC") {
        m_isInLooseBlock = false;
        return true;
    }
    if (record != kEnd && record != "SECTION")
        return false;
    EndWithoutEnd();
    return true;
}

void Pass::ReadHeaderSection()
{
    ReadVariables();
    ReadLooseRecords();
}

void Pass::ReadVariables()
{
    const bool wasKnown = !m_drawing.header.Text("$DWGCODEPAGE").empty();
    ReadHeader(m_reader);
    const bool isKnown = !m_drawing.header.Text("$DWGCODEPAGE").empty();
    if (isKnown && !wasKnown && (m_hasTables || m_hasBlocks || m_hasObjects))
        m_drawing.hasLateCodePage = true;
}

void Pass::ReadTablesSection()
{
    m_hasTables = true;
    for (std::string_view record; !IsSectionEnd(record = NextRecord());)
        if (record == "BLOCK" || IsEntity(record))
            ReadOutsideOfSections(record);
        else
            ReadTableEntry(m_reader);
}

void Pass::ReadObjectsSection()
{
    m_hasObjects = true;
    for (std::string_view record; !IsSectionEnd(record = NextRecord());)
        if (record == "MLINESTYLE")
            ReadTableEntry(m_reader);
        else if (record == "BLOCK" || IsEntity(record))
            ReadOutsideOfSections(record);
        else
            m_objects.Read(record);
}

void Pass::ReadBlocksSection()
{
    m_hasBlocks = true;
    for (std::string_view record; !IsSectionEnd(record = NextRecord());)
        if (record == "BLOCK")
            ReadBlock();
        else
            ReadOutsideOfSections(record);
}

void Pass::ReadBlock()
{
    auto block = std::make_unique<Block>();
    block->line = m_reader.Line() + 1;
    m_reader.Read(*block, kBlock);
    m_reader.NoteZeros("BLOCK", block->line);
    const std::string_view name = m_drawing.names.Text(block->name);
    block->isLayout = IsModelSpaceName(name) || IsPaperSpaceName(name);
    ReadBlockEntities(*block);
    KeepBlock(std::move(block));
}

void Pass::KeepBlock(std::unique_ptr<Block> block)
{
    const std::uint64_t line = block->line;
    if (block->name == kNoName)
        return m_reader.Note(Finding::Repaired, "BLOCK", "one without a name is left out", line);
    std::unique_ptr<Block>& kept = m_drawing.blocks[block->name];
    if (kept == nullptr)
        kept = std::move(block);
    else
        m_reader.Note(Finding::Repaired, "BLOCK", "a second one of the same name is left out", line);
}

void Pass::ReadBlockEntities(Block& block)
{
    const bool isPaper = IsPaperSpaceName(m_drawing.names.Text(block.name));
    for (;;) {
        const std::string_view record = NextRecord();
        if (record == "ENDBLK")
            return;
        if (record == kEnd || record == "BLOCK" || record == "ENDSEC" || record == "SECTION") {
            m_reader.NoteMissingEnd("BLOCK", "ends without ENDBLK", block.line);
            return m_reader.Unread();
        }
        if (std::unique_ptr<Entity> entity = m_entities.Read(m_entities.TypeName(), true)) {
            if (isPaper)
                entity->isInPaperSpace = 1;
            block.entities.push_back(std::move(entity));
        }
    }
}

// The entities of the layouts' blocks come before those of the section.
void Pass::GiveLayoutBlocks()
{
    if (std::exchange(m_hasGivenLayouts, true))
        return;
    // Drawing looks these names up, so they are registered even if they come later.
    for (const char* const name : {"0", "BYLAYER", "BYBLOCK", "CONTINUOUS"})
        m_drawing.names.Of(name);
    for (const auto& [name, block] : m_drawing.blocks)
        if (block->isLayout)
            for (const std::unique_ptr<Entity>& entity : block->entities)
                m_sink->Take(*entity);
}

// Whether entities can go to the sink by now; if not, none that follow do.
bool Pass::MayGiveEntities()
{
    m_hasSkippedEntities = m_hasSkippedEntities || m_sink == nullptr;
    if (!m_hasSkippedEntities)
        GiveLayoutBlocks();
    return !m_hasSkippedEntities;
}

void Pass::GiveEntity(NameId type)
{
    m_reader.SetReport(m_reportOfEntities);
    const std::unique_ptr<Entity> entity = m_entities.Read(type, false);
    m_reader.SetReport(m_report);
    if (entity != nullptr)
        m_sink->Take(*entity);
}

// What a lost end and a lost start put here belongs to other sections.
void Pass::ReadEntitiesSection()
{
    const bool mayGive = MayGiveEntities();
    for (std::string_view record; !IsSectionEnd(record = NextRecord());) {
        const NameId type = m_entities.TypeName();
        record = m_drawing.names.Text(type); // what NextRecord gave may be gone
        const bool isKnown = m_entities.TypeOf(type) != EntityType::Other;
        if (!isKnown && IsAmong(record, kObjects))
            return GoOnWithObjects();
        if (m_isInLooseBlock || (!isKnown && IsAmong(record, kOfTablesOrBlocks)))
            ReadOutsideOfSections(record);
        else if (mayGive)
            GiveEntity(type);
    }
}

// The second of two passes wants nothing of the objects but entities, which it takes wherever they are.
void Pass::GoOnWithObjects()
{
    EndWithoutEnd();
    if (m_isIndex)
        ReadObjectsSection();
}

// The section of the header has lost its start or its name.
void Pass::TakeHeader()
{
    m_reader.Note(Finding::Repaired, "file", "a header outside of sections is taken", m_reader.Line());
    m_reader.Unread();
    ReadVariables();
}

void Pass::TakeObject(std::string_view type)
{
    m_reader.Note(Finding::Repaired, "file", "an object outside of sections is taken", m_reader.Line());
    m_hasObjects = true;
    m_objects.Read(type);
}

void Pass::TakeEntity()
{
    m_reader.Note(Finding::Repaired, "file", "an entity outside of sections is taken", m_reader.Line());
    m_hasSkippedEntities = m_hasSkippedEntities || (m_isIndex && (!m_hasTables || !m_hasBlocks));
    if (MayGiveEntities())
        GiveEntity(m_entities.TypeName());
}

void Pass::TakeBlock()
{
    m_reader.Note(Finding::Repaired, "file", "this block is outside of sections and is taken",
                  m_reader.Line());
    m_drawing.hasLateParts = m_drawing.hasLateParts || m_hasGivenLayouts;
    m_hasBlocks = true;
    ReadBlock();
}

// Some files are only lists of entities, and some lack the start of a section, or its end and the next one's
// start. The second of two passes only wants the entities.
void Pass::ReadOutsideOfSections(std::string_view record)
{
    if (record == "BLOCK" && m_isIndex)
        return TakeBlock();
    if (record == "BLOCK" || record == "ENDBLK" || record == "ENDSEC")
        m_isInLooseBlock = record == "BLOCK";
    if (m_isInLooseBlock)
        return;
    if (IsEntity(record))
        return TakeEntity();
    if (m_isIndex && IsAmong(record, kObjects))
        return TakeObject(record);
    const std::uint64_t line = m_reader.Line();
    if (!m_isIndex || !ReadTableEntry(m_reader))
        return;
    m_drawing.hasLateParts = m_drawing.hasLateParts || m_hasGivenLayouts;
    m_reader.Note(Finding::Repaired, "file", "this entry of a table is outside of sections and is taken",
                  line);
}

// Up to the end of a section that should have no more records, or has an unknown name.
void Pass::ReadLooseRecords()
{
    for (std::string_view record; !IsSectionEnd(record = NextRecord());)
        ReadOutsideOfSections(record);
}

void Pass::NoteSecond(std::string_view section)
{
    const auto known = std::find(std::begin(kSections), std::end(kSections), section);
    if (known == std::end(kSections))
        return;
    if (std::exchange(m_hasMet[static_cast<std::size_t>(known - std::begin(kSections))], true))
        m_reader.Note(Finding::Repaired, "file", "a second section " + std::string(section) + " is read, too",
                      m_reader.Line());
}

void Pass::ReadSection(std::string_view name)
{
    NoteSecond(name);
    const bool isForEntities = name == "HEADER" || name == "TABLES" || name == "BLOCKS";
    m_drawing.hasLateParts = m_drawing.hasLateParts || (isForEntities && m_hasGivenLayouts);
    if (name == "HEADER") {
        ReadHeaderSection();
    } else if (name == "TABLES") {
        ReadTablesSection();
    } else if (name == "BLOCKS") {
        ReadBlocksSection();
    } else if (name == "OBJECTS") {
        ReadObjectsSection();
    } else if (name == "ENTITIES") {
        m_hasSkippedEntities = m_hasSkippedEntities || !m_hasTables || !m_hasBlocks;
        ReadEntitiesSection();
    } else {
        ReadLooseRecords();
    }
}

// What an earlier pass met of the header.
void Pass::KnowCodePage()
{
    m_reader.SetCodePage(m_drawing.header.Text("$DWGCODEPAGE"), m_drawing.header.Text("$ACADVER"));
}

bool Pass::ReadIndex()
{
    m_isIndex = true;
    KnowCodePage();
    for (std::string_view name; !(name = NextSection()).empty();)
        ReadSection(name);
    KnowRecords();
    m_objects.Finish();
    SortBlocks();
    if (m_sink != nullptr && !m_hasSkippedEntities)
        GiveLayoutBlocks();
    NotePairs();
    m_drawing.bytes = m_reader.Pairs().Bytes();
    m_drawing.lines = m_reader.Pairs().Lines();
    return m_sink != nullptr && !m_hasSkippedEntities;
}

void Pass::ReadEntities(Report* report)
{
    m_reportOfEntities = report;
    for (auto& [name, count] : m_drawing.types)
        count.inDrawing = 0; // an earlier pass may have counted some
    KnowCodePage();
    GiveLayoutBlocks();
    for (std::string_view name; !(name = NextSection()).empty();)
        if (name == "ENTITIES")
            ReadEntitiesSection();
}

// Blocks and their records know each other, whichever of them says so; so do a layout's block and what is in
// it.
void Pass::KnowRecords()
{
    for (const auto& [name, block] : m_drawing.blocks)
        if (block->record != 0 && m_drawing.blockOfRecord.try_emplace(block->record, name).second)
            m_drawing.hasLateParts = true;
    for (const auto& [record, name] : m_drawing.blockOfRecord) {
        const auto block = m_drawing.blocks.find(name);
        if (block != m_drawing.blocks.end() && block->second->record == 0)
            block->second->record = record;
    }
    for (const auto& [name, block] : m_drawing.blocks)
        if (block->isLayout && block->record != 0)
            for (const std::unique_ptr<Entity>& entity : block->entities)
                entity->owner = block->record;
}

// Puts the entities of blocks into the order of drawing.
void Pass::SortBlocks()
{
    if (m_drawing.placeInOrder.empty())
        return;
    const auto isBefore = [&](const std::unique_ptr<Entity>& a, const std::unique_ptr<Entity>& b) {
        return m_drawing.PlaceOf(a->handle) < m_drawing.PlaceOf(b->handle);
    };
    for (const auto& [name, block] : m_drawing.blocks) {
        auto& entities = block->entities;
        const bool isSorted =
            std::none_of(entities.begin(), entities.end(), [&](const std::unique_ptr<Entity>& entity) {
                return m_drawing.placeInOrder.contains(entity->handle);
            });
        if (!isSorted)
            std::stable_sort(entities.begin(), entities.end(), isBefore);
    }
}

void Pass::NotePairs()
{
    const PairReader& pairs = m_reader.Pairs();
    m_drawing.isEnded = pairs.HasEofPair();
    m_drawing.hasSkippedLines = pairs.SkippedLines().count > 0;
    const auto note = [&](Finding finding, const Tally& tally, std::string_view detail) {
        if (tally.count != 0)
            m_reader.Note(finding, "file", detail, tally.firstLine, tally.count);
    };
    if (pairs.HasSpacedLines())
        m_reader.Note(Finding::Repaired, "file", "the empty line after each line is left out", 2);
    note(Finding::Repaired, pairs.SkippedLines(), "a line is skipped that is not a group code");
    note(Finding::Cut, pairs.CutLines(), "a line is longer than 65,536 bytes");
    note(Finding::Cut, pairs.NulLines(), "a NUL byte ends its line's text");
    if (pairs.IsBrokenBinary())
        m_reader.Note(Finding::Cut, "file", "a binary value is of an unknown kind: the rest is left out",
                      pairs.Lines());
    else if (!pairs.HasEofPair())
        m_reader.NoteMissingEnd("file", "ends without EOF", pairs.Lines());
}

} // namespace

bool ReadIndex(CDxfSource& source, std::string_view encoding, Drawing& drawing, EntitySink* sink,
               Report& report, bool& hasFailed)
{
    Pass pass(source, encoding, drawing, sink, &report);
    const bool hasGivenAll = pass.ReadIndex();
    hasFailed = pass.HasFailed();
    return hasGivenAll;
}

bool MustReadAgain(const Drawing& drawing, std::string_view encoding)
{
    return drawing.hasLateCodePage && encoding.empty() && IsEncoding(drawing.header.Text("$DWGCODEPAGE"));
}

bool NamesNoCodePage(const Drawing& drawing, std::string_view encoding)
{
    return encoding.empty() &&
           IsCodePageUnknown(drawing.header.Text("$DWGCODEPAGE"), drawing.header.Text("$ACADVER"));
}

void GuessCodePage(Drawing& drawing)
{
    constexpr const char* kShiftJis = "ANSI_932";
    const std::uint64_t line = drawing.guess.FirstLine();
    if (line == 0 || !IsEncoding(kShiftJis))
        return;
    drawing.header["$DWGCODEPAGE"].values = {{3, kShiftJis}};
    drawing.hasLateCodePage = true;
    drawing.firstGuessed = line;
}

void NoteGuess(const Drawing& drawing, Report& report)
{
    if (drawing.firstGuessed != 0)
        report.Add(Finding::Repaired, "file", "names no code page: its texts are read as Shift-JIS",
                   drawing.firstGuessed);
}

void ReadEntities(CDxfSource& source, std::string_view encoding, Drawing& drawing, EntitySink& sink,
                  bool& hasFailed, Report* report)
{
    Pass pass(source, encoding, drawing, &sink, nullptr);
    pass.ReadEntities(report);
    hasFailed = pass.HasFailed();
}

} // namespace prepare
