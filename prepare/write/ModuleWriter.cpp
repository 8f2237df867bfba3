#include "prepare/write/ModuleWriter.h"

#include "base/Decimals.h"
#include "base/Numbers.h"
#include "prepare/write/AgreedBlocks.h"
#include "prepare/write/ModuleDecimals.h"
#include "prepare/write/ModuleFills.h"

#include <algorithm>
#include <cmath>

namespace prepare {

namespace {

// Finds what is used, before anything is written: blocks that are inserted, and texts that need some.
class ModuleCollector final : public LogVisitor {
public:
    ModuleCollector(std::size_t blocks, ModuleTexts& texts, double factor, int decimals)
        : m_isUsed(blocks), m_texts(texts), m_factor(factor), m_decimals(decimals)
    {
    }

    void Line(StyleId, Point2, Point2) override {}
    void Circle(StyleId, Point2, double) override {}
    void Arc(StyleId, Point2, double, double, double) override {}
    void Ellipse(StyleId, Point2, Point2, double, double, double) override {}
    void Polyline(StyleId, std::span<const PlainVertex>, bool) override {}
    void Fill(StyleId, std::span<const std::vector<Point2>>) override { m_hasFills = true; }
    void Mask(StyleId, std::span<const std::vector<Point2>>) override { m_hasFills = true; }
    void Text(StyleId style, const LoggedText& text) override
    {
        const TextPlace place = TextPlaceForModule(text.along, text.up);
        TextLoss unsaid;
        if (!place.isUpright)
            m_texts.Add(ModuleLineOf(style, text, place, m_factor, m_decimals, unsaid), place.innerRotation);
    }
    void LineOfText(Point2 point, double spread, std::span<const LoggedRun> runs) override
    {
        const TextPlace place = TextPlaceForModule(runs.front().text.along, runs.front().text.up);
        TextLoss unsaid; // writing finds it again
        m_texts.Add(ModuleLineOf(point, spread, runs, place, m_factor, m_decimals, unsaid),
                    place.innerRotation);
    }
    void Insert(std::size_t block, Point2, double, bool) override
    {
        if (m_isUsed[block])
            return;
        m_isUsed[block] = true;
        m_used.push_back(block);
    }

    // The blocks in the order in which they were met; it grows while they are looked at.
    const std::vector<std::size_t>& Used() const { return m_used; }
    bool HasFills() const { return m_hasFills; }

private:
    std::vector<bool> m_isUsed;
    std::vector<std::size_t> m_used;
    bool m_hasFills = false;
    ModuleTexts& m_texts;
    double m_factor;
    int m_decimals;
};

// Far from its block's origin, what is drawn loses digits (32-bit floats) and an insert's rotation moves it:
// then the written block has an origin of its own, in its middle.
Point2 OriginOf(const Box& reach)
{
    constexpr double kFar = 4; // sizes
    if (reach.IsEmpty())
        return {};
    const Point2 middle = 0.5 * (reach.min + reach.max);
    const double size = reach.LongerSide();
    if (std::max(std::fabs(middle.x), std::fabs(middle.y)) <= kFar * size)
        return {};
    if (!(size > 0))
        return middle;
    // Of few digits, so that the coordinates keep theirs.
    const double step = PowerOfTen(static_cast<int>(std::floor(std::log10(size))));
    return {std::nearbyint(middle.x / step) * step, std::nearbyint(middle.y / step) * step};
}

void Point(PairWriter& pairs, int code, Point2 p)
{
    pairs.Real(code, p.x);
    pairs.Real(code + 10, p.y);
}

// Of the blocks in which a wrapped drawing is: each but the first has the one before in it, in millionths,
// because a scale has six decimals.
constexpr int kLeastPower = -6;

std::size_t WrapsFor(const Wrap& wrap)
{
    if (!wrap.isNeeded)
        return 0;
    return wrap.power > kLeastPower ? 1
                                    : static_cast<std::size_t>((wrap.power + kLeastPower + 1) / kLeastPower);
}

std::string NameOfWrap(std::size_t number)
{
    return Numbered(kWrapPrefix, number);
}

void BeginBlock(PairWriter& pairs, const std::string& name)
{
    pairs.Text(0, "BLOCK");
    pairs.Text(2, name);
}

void WriteScaled(PairWriter& pairs, const std::string& block, int power)
{
    pairs.Text(0, "INSERT");
    pairs.Text(2, block);
    const double scale = PowerOfTen(power);
    pairs.Real(41, scale);
    pairs.Real(42, scale);
}

void WriteInsertOfWrap(PairWriter& pairs, const Wrap& wrap)
{
    const std::size_t wraps = WrapsFor(wrap);
    WriteScaled(pairs, NameOfWrap(wraps), wrap.power - static_cast<int>(wraps - 1) * kLeastPower);
    // As texts that give the same floats back.
    for (const auto& [code, value] : {std::pair(10, wrap.origin.x), std::pair(20, wrap.origin.y)}) {
        char number[kLongestShortest];
        pairs.Text(code, {number, FormatShortest(static_cast<float>(value), number)});
    }
}

} // namespace

void ModuleWriter::WriteHeader(PairWriter& pairs) const
{
    BeginSection(pairs, "HEADER");
    pairs.Text(9, "$ACADVER");
    pairs.Text(1, "AC1015");
    for (const char* const name : {"$INSUNITS", "$MEASUREMENT"})
        if (const std::int32_t value = UnitsVariable(name); value >= 0) {
            pairs.Text(9, name);
            pairs.Integer(70, value);
        }
    if (!m_settings.extents.IsEmpty()) {
        pairs.Text(9, "$EXTMIN");
        Point(pairs, 10, m_settings.extents.min);
        pairs.Text(9, "$EXTMAX");
        Point(pairs, 10, m_settings.extents.max);
    }
    pairs.Text(0, "ENDSEC");
}

// Only those that are inserted and have something to see are written, with an origin of their own.
std::vector<ModuleBlock> ModuleWriter::NameBlocks(const std::vector<std::size_t>& used) const
{
    std::vector<ModuleBlock> blocks(m_blocks.size());
    std::size_t number = 0;
    for (const std::size_t block : used)
        if (const PlainLog& log = m_blocks[block].log; !log.IsEmpty())
            blocks[block] = {Numbered(kPartPrefix, ++number), OriginOf(log.Reach())};
    return blocks;
}

// Areas are blocks, and come before the blocks that they are in.
void ModuleWriter::WriteFills(const ModuleOutput& output, const std::vector<std::size_t>& used,
                              const Wrap& wrap) const
{
    const auto write = [&](const PlainLog& log, Point2 origin) {
        ModuleEntities entities(output, origin, false);
        ModuleFills areas(entities);
        log.Replay(areas);
    };
    for (const std::size_t block : used)
        if (!output.blocks[block].name.empty())
            write(m_blocks[block].log, output.blocks[block].origin);
    output.layers.WriteBlocks(output.pairs);
    write(m_model, wrap.origin);
}

void ModuleWriter::WriteBlocks(const ModuleOutput& output, const std::vector<std::size_t>& used) const
{
    for (const std::size_t block : used)
        if (const ModuleBlock& written = output.blocks[block]; !written.name.empty()) {
            BeginBlock(output.pairs, written.name);
            ModuleEntities entities(output, written.origin, output.layers.OfBlock(block) == 0);
            m_blocks[block].log.Replay(entities);
            output.pairs.Text(0, "ENDBLK");
        }
}

void ModuleWriter::WriteModel(const ModuleOutput& output, const Wrap& wrap) const
{
    ModuleEntities model(output, wrap.origin, true);
    m_model.Replay(model);
}

// The model in a block, and blocks that scale it.
void ModuleWriter::WriteWraps(const ModuleOutput& output, const Wrap& wrap) const
{
    for (std::size_t i = 1; i <= WrapsFor(wrap); ++i) {
        BeginBlock(output.pairs, NameOfWrap(i));
        if (i == 1)
            WriteModel(output, wrap);
        else
            WriteScaled(output.pairs, NameOfWrap(i - 1), kLeastPower);
        output.pairs.Text(0, "ENDBLK");
    }
}

void ModuleWriter::WriteEntities(const ModuleOutput& output, const Wrap& wrap) const
{
    BeginSection(output.pairs, "ENTITIES");
    if (wrap.isNeeded)
        WriteInsertOfWrap(output.pairs, wrap);
    else
        WriteModel(output, wrap);
    output.pairs.Text(0, "ENDSEC");
}

bool ModuleWriter::Finish(const ByteFunction& write)
{
    const Wrap wrap = ChooseWrap(m_settings, m_model.Reach());
    const ModuleStyles styles(m_logs.Styles(), m_settings, wrap.factor);
    const int decimals = ModuleDecimals(wrap.stroke);
    ModuleTexts texts;
    ModuleLayers layers(m_drawing, m_logs.Styles(), m_blocks, m_settings.marksLayers);
    ModuleCollector collector(m_blocks.size(), texts, wrap.factor, decimals);
    m_model.Replay(collector);
    const std::vector<std::size_t>& used = collector.Used();
    for (std::size_t i = 0; i < used.size(); ++i)
        m_blocks[used[i]].log.Replay(collector);

    PairWriter pairs(write, FormFor(m_settings));
    const std::vector<ModuleBlock> blocks = NameBlocks(used);
    const double tolerance = m_settings.tolerance > 0 ? m_settings.tolerance * wrap.factor : wrap.stroke / 20;
    Fineness curves(tolerance, m_settings.sparePointsOfCurves);
    FillCounts fills;
    const double coveringStroke = m_settings.fill == FillForm::Strokes ? wrap.stroke : 0;
    const ModuleOutput output{pairs, styles, texts,       layers,   blocks,        m_report,
                              fills, curves, wrap.factor, decimals, coveringStroke};

    WriteHeader(pairs);
    styles.WriteTables(pairs);
    const bool hasParts = std::any_of(blocks.begin(), blocks.end(),
                                      [](const ModuleBlock& block) { return !block.name.empty(); });
    if (hasParts || !texts.IsEmpty() || wrap.isNeeded || collector.HasFills() || layers.HasMarks()) {
        BeginSection(pairs, "BLOCKS");
        if (collector.HasFills())
            WriteFills(output, used, wrap);
        else
            layers.WriteBlocks(pairs);
        WriteBlocks(output, used);
        texts.WriteBlocks(pairs, styles, decimals);
        WriteWraps(output, wrap);
        pairs.Text(0, "ENDSEC");
    }
    WriteEntities(output, wrap);
    pairs.Text(0, "EOF");
    ReportCoarse(curves);
    if (wrap.isNeeded)
        m_report.Add(Finding::Rewritten, "drawing", "one block near the origin", 0);
    return pairs.Finish();
}

} // namespace prepare
