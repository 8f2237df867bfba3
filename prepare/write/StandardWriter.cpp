#include "prepare/write/StandardWriter.h"

#include "prepare/write/LogExtents.h"
#include "prepare/write/StandardDecimals.h"
#include "prepare/write/StandardEntities.h"
#include "prepare/write/StandardObjects.h"
#include "prepare/write/StrokeWidth.h"

#include <algorithm>

namespace prepare {

namespace {

// Finds the blocks and text styles that are used, before anything is written.
class StandardCollector final : public LogVisitor {
public:
    StandardCollector(const std::deque<KeptBlock>& blocks, int decimals)
        : isUsed(blocks.size()), m_blocks(blocks), m_decimals(decimals)
    {
    }

    void Line(StyleId, Point2, Point2) override { ++count; }
    void Circle(StyleId, Point2, double) override { ++count; }
    void Arc(StyleId, Point2, double, double, double) override { ++count; }
    void Ellipse(StyleId, Point2, Point2, double, double, double) override { ++count; }
    void Polyline(StyleId, std::span<const PlainVertex>, bool) override { ++count; }
    void Fill(StyleId, std::span<const std::vector<Point2>> rings) override
    {
        count += WrittenRings(rings, m_decimals).empty() ? 0 : 1;
    }
    void Text(StyleId, const LoggedText& text) override
    {
        ++count;
        textStyles.insert(text.style);
    }
    void Insert(std::size_t block, Point2, double, bool) override
    {
        if (m_blocks[block].log.IsEmpty())
            return;
        ++count;
        if (isUsed[block])
            return;
        isUsed[block] = true;
        m_used.push_back(block);
    }

    void Collect(const PlainLog& model)
    {
        model.Replay(*this);
        for (std::size_t i = 0; i < m_used.size(); ++i)
            m_blocks[m_used[i]].log.Replay(*this);
    }

    std::vector<bool> isUsed;
    std::set<NameId> textStyles;
    std::uint64_t count = 0; // of entities that will be written

private:
    const std::deque<KeptBlock>& m_blocks;
    const int m_decimals;
    std::vector<std::size_t> m_used; // it grows while they are looked at
};

void WriteMarked(PairWriter& pairs, const char* type, std::uint64_t handle, std::uint64_t owner,
                 bool isInPaperSpace, const char* marker)
{
    pairs.Text(0, type);
    pairs.Handle(5, handle);
    pairs.Handle(330, owner);
    pairs.Text(100, "AcDbEntity");
    if (isInPaperSpace)
        pairs.Integer(67, 1);
    pairs.Text(8, "0");
    pairs.Text(100, marker);
}

void BeginBlock(PairWriter& pairs, std::uint64_t handle, std::uint64_t owner, std::string_view name,
                bool isInPaperSpace = false)
{
    WriteMarked(pairs, "BLOCK", handle, owner, isInPaperSpace, "AcDbBlockBegin");
    pairs.Text(2, name);
    pairs.Integer(70, 0);
    WritePoint3(pairs, 10, {}, 0);
    pairs.Text(3, name);
    pairs.Text(1, "");
}

void WriteBlockEnd(PairWriter& pairs, std::uint64_t handle, std::uint64_t owner, bool isInPaperSpace = false)
{
    WriteMarked(pairs, "ENDBLK", handle, owner, isInPaperSpace, "AcDbBlockEnd");
}

void WriteLayoutBlocks(PairWriter& pairs)
{
    BeginBlock(pairs, kModelBegin, kModelRecord, "*Model_Space");
    WriteBlockEnd(pairs, kModelEnd, kModelRecord);
    BeginBlock(pairs, kPaperBegin, kPaperRecord, "*Paper_Space", true);
    WriteBlockEnd(pairs, kPaperEnd, kPaperRecord, true);
}

} // namespace

std::vector<StandardBlock> StandardWriter::NamedBlocks(const std::vector<bool>& isUsed) const
{
    StandardNames names({});
    std::vector<StandardBlock> blocks;
    for (std::size_t number = 0; number < m_blocks.size(); ++number)
        if (isUsed[number])
            blocks.push_back({names.Take(m_blocks[number].name), 0, number});
    std::sort(blocks.begin(), blocks.end(),
              [](const StandardBlock& a, const StandardBlock& b) { return a.name < b.name; });
    return blocks;
}

void StandardWriter::WriteHeader(PairWriter& pairs, const Box& extents, std::uint64_t handleSeed) const
{
    BeginSection(pairs, "HEADER");
    pairs.Text(9, "$ACADVER");
    pairs.Text(1, "AC1015");
    pairs.Text(9, "$DWGCODEPAGE");
    pairs.Text(3, "ANSI_1252");
    if (!extents.IsEmpty())
        for (const auto& [name, point] :
             {std::pair("$EXTMIN", extents.min), std::pair("$EXTMAX", extents.max)}) {
            pairs.Text(9, name);
            WritePoint3(pairs, 10, point, DecimalsOfExtents(StandardDecimals(extents)));
        }
    pairs.Text(9, "$LTSCALE");
    pairs.Integer(40, 1);
    pairs.Text(9, "$HANDSEED");
    pairs.Handle(5, handleSeed);
    for (const char* const name : {"$INSUNITS", "$MEASUREMENT"})
        if (const std::int32_t value = UnitsVariable(name); value >= 0) {
            pairs.Text(9, name);
            pairs.Integer(70, value);
        }
    pairs.Text(0, "ENDSEC");
}

bool StandardWriter::Finish(const ByteFunction& write)
{
    const Box extents = ExtentsOf(m_model, m_blocks);
    const int decimals = StandardDecimals(extents);
    StandardCollector collector(m_blocks, decimals);
    collector.Collect(m_model);
    const StandardTables tables(m_drawing, m_logs.Styles(), collector.textStyles);
    const std::vector<std::string> styleTexts = StandardStyleTexts(m_logs.Styles(), tables);

    std::vector<StandardBlock> blocks = NamedBlocks(collector.isUsed);
    std::vector<std::string> names(m_blocks.size());
    std::uint64_t handle = kFirstFreeHandle;
    std::uint64_t seed = kFirstFreeHandle + tables.HandleCount() + collector.count;
    for (StandardBlock& block : blocks) {
        names[block.number] = block.name;
        block.record = handle++;
        seed += 3; // its record, begin and end
    }

    PairWriter pairs(write);
    Fineness curves(m_settings.tolerance, m_settings.sparePointsOfCurves);
    const double dot = StrokeWidth(m_settings, m_settings.thinnestWeight, 0);
    const StandardOutput output{pairs,    m_logs.Styles(), styleTexts, tables,   names,
                                m_report, curves,          dot,        decimals, handle};
    WriteHeader(pairs, extents, seed);
    tables.Write(pairs, blocks, extents, decimals, handle);
    BeginSection(pairs, "BLOCKS");
    WriteLayoutBlocks(pairs);
    for (const StandardBlock& block : blocks) {
        BeginBlock(pairs, handle++, block.record, block.name);
        StandardEntities entities(output, block.record);
        m_blocks[block.number].log.Replay(entities);
        WriteBlockEnd(pairs, handle++, block.record);
    }
    pairs.Text(0, "ENDSEC");
    BeginSection(pairs, "ENTITIES");
    StandardEntities model(output, kModelRecord);
    m_model.Replay(model);
    pairs.Text(0, "ENDSEC");
    WriteStandardObjects(pairs, extents, decimals);
    pairs.Text(0, "EOF");
    ReportCoarse(curves);
    return pairs.Finish();
}

} // namespace prepare
