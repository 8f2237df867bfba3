#include "support/Sweep.h"

#include "convert/CDxfReadToQuillmar.h"
#include "entities/DXF_BLOCKS_BLOCK.h"
#include "input/CDxfMemory.h"
#include "support/RecordText.h"
#include "support/RecordingHost.h"
#include "support/TempFile.h"
#include "support/TestScale.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>

namespace {

#define DRAW_RECORD(number, TYPE, Callback, constness)                                                       \
    void On##Callback(constness DXF_GRAPHIC_##TYPE& record) override                                         \
    {                                                                                                        \
        Draw(&record, [&] { CDxfReadToQuillmar::On##Callback(record); });                                    \
    }

// Keeps what each record draws apart from the others.
class SweptReader final : public CDxfReadToQuillmar {
public:
    explicit SweptReader(Outcome& outcome, bool refuseAll)
        : CDxfReadToQuillmar(RecordingHost::Context()), m_outcome(outcome), m_refuseAll(refuseAll)
    {
    }

    KeptCount Count() const
    {
        KeptCount count;
        for (const DXF_TABLES_HEADER* const table : tables)
            count.tables += table->m_entries.size();
        for (const DXF_BLOCKS_BLOCK* const block : blocks)
            count.blocks += 1 + block->m_entities.size();
        count.entities = entities.size();
        return count;
    }

    // After the reading and drawing.
    void Finish()
    {
        for (const DXF_TABLES_HEADER* const table : tables)
            for (const DXF_TABLES_COMMON* const entry : table->m_entries)
                m_outcome.tables.push_back(RecordText(*entry));
        for (const DXF_BLOCKS_BLOCK* const block : blocks) {
            m_outcome.blocks.push_back(m_drawn[block]);
            for (const DXF_GRAPHIC_BASE* const entity : block->m_entities)
                m_outcome.blocks.push_back(m_drawn[entity]);
        }
        for (const DXF_GRAPHIC_BASE* const entity : entities)
            m_outcome.entities.push_back(m_drawn[entity]);
        m_outcome.lines = lineCount;
    }

    int OnError(std::uint32_t code, int kind, const wchar_t* message, std::int64_t extra) override
    {
        if (m_record != nullptr || m_isDrawing)
            return CDxfReadToQuillmar::OnError(code, kind, message, extra);
        const FailingMemory::Pause pause;
        m_outcome.messages.push_back(
            {lineCount, std::to_string(code) + ' ' + std::to_string(kind) + ' ' + ToTraceText(message)});
        return 0;
    }

    void OnBlockBegin(const DXF_BLOCKS_BLOCK& block) override
    {
        Draw(&block, [&] { CDxfReadToQuillmar::OnBlockBegin(block); });
    }
    void OnBlockEnd(const DXF_BLOCKS_BLOCK& block) override
    {
        Draw(&block, [&] { CDxfReadToQuillmar::OnBlockEnd(block); });
    }
    DXF_DRAWN_TYPES(DRAW_RECORD)

    // The calls of what follows the last record; an entity that met a shortage of memory reports it there.
    void TakeCalls()
    {
        const FailingMemory::Pause pause;
        RecordingHost& host = RecordingHost::OfThread();
        m_outcome.calls += host.calls.size();
        m_drawn[m_record] += host.Trace();
        host.Reset();
        host.refuseAll = m_refuseAll;
    }

private:
    void Draw(const void* record, const std::function<void()>& draw)
    {
        TakeCalls();
        m_isDrawing = true;
        m_record = record;
        draw();
    }

    Outcome& m_outcome;
    const bool m_refuseAll;
    bool m_isDrawing = false;
    const void* m_record = nullptr; // that draws
    std::map<const void*, std::string> m_drawn;
};

#undef DRAW_RECORD

// Counts the reads of another source.
class CountedSource final : public CDxfSource {
public:
    CountedSource(CDxfSource& source, Outcome& outcome, const SweepOptions& options)
        : m_source(source), m_outcome(outcome), m_options(options)
    {
    }
    const SweptReader* reader = nullptr;

    std::ptrdiff_t Read(char* bytes, std::size_t size) override
    {
        const FailingMemory::Pause pause;
        ++m_outcome.reads;
        if (m_options.onRead)
            m_options.onRead(reader->Count());
        const std::ptrdiff_t count = m_source.Read(bytes, size);
        m_outcome.hasEnded = m_outcome.hasEnded || count <= 0;
        return count;
    }

private:
    CDxfSource& m_source;
    Outcome& m_outcome;
    const SweepOptions& m_options;
};

// Gives one line a read.
class LineByLine final : public CDxfSource {
public:
    explicit LineByLine(std::string_view bytes) : m_rest(bytes) {}

    std::ptrdiff_t Read(char* bytes, std::size_t size) override
    {
        const std::size_t line = std::min(m_rest.find('\n'), m_rest.size() - 1) + 1;
        const std::size_t count = std::min({line, m_rest.size(), size});
        std::copy_n(m_rest.data(), count, bytes);
        m_rest.remove_prefix(count);
        return static_cast<std::ptrdiff_t>(count);
    }

private:
    std::string_view m_rest;
};

std::vector<std::string_view> LinesOf(const std::string& drawing)
{
    std::vector<std::string_view> lines;
    for (std::string_view rest = drawing; !rest.empty(); rest.remove_prefix(lines.back().size()))
        lines.push_back(rest.substr(0, std::min(rest.find('\n'), rest.size() - 1) + 1));
    return lines;
}

// The first of the records, all but the one that may have been read on, are as they were.
std::string Compare(const char* what, const std::vector<std::string>& faulty,
                    const std::vector<std::string>& whole, std::size_t count)
{
    for (std::size_t i = 0; i + 1 < count; ++i)
        if (i >= faulty.size() || faulty[i] != whole[i])
            return std::string(what) + " " + std::to_string(i) + " is:\n" +
                   (i < faulty.size() ? faulty[i] : "none") + "\nand was:\n" + whole[i];
    return {};
}

} // namespace

const std::vector<SweptDrawing>& SweptDrawings()
{
    static const std::vector<SweptDrawing> drawings = [] {
        std::vector<SweptDrawing> found;
        for (const char* folder : {PLEXORN_TEST_DATA "/trace", PLEXORN_TEST_DATA "/robust/drawings"})
            for (const auto& entry : std::filesystem::directory_iterator(folder))
                if (entry.path().extension() == ".dxf")
                    found.push_back({entry.path().stem().string(), BytesOf(entry.path())});
        std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
        return found;
    }();
    return drawings;
}

Outcome OutcomeOf(CDxfSource& source, const SweepOptions& options)
{
    Outcome outcome;
    RecordingHost::OfThread().Reset();
    FailingMemory memory(options.failingAllocation, options.which);
    {
        SweptReader reader(outcome, options.refuseAll);
        reader.TakeCalls();
        CountedSource counted(source, outcome, options);
        counted.reader = &reader;
        reader.ReadDxfSource(counted);
        const FailingMemory::Pause pause;
        reader.TakeCalls();
        reader.Finish();
    }
    outcome.allocations = memory.Allocations();
    outcome.leaked = memory.Live();
    outcome.memoryFailed = memory.HasFailed();
    return outcome;
}

Outcome OutcomeOf(std::string_view bytes, const SweepOptions& options)
{
    CDxfMemory memory(bytes);
    return OutcomeOf(memory, options);
}

WholeImport WholeDrawing(std::string_view bytes)
{
    WholeImport whole;
    whole.keptBefore.emplace_back(); // no line is 0
    SweepOptions options;
    options.onRead = [&](const KeptCount& count) { whole.keptBefore.push_back(count); };
    LineByLine source(bytes);
    whole.outcome = OutcomeOf(source, options);
    return whole;
}

std::string FaultsOf(const Outcome& outcome, const WholeImport& whole, std::int32_t line, std::size_t size)
{
    // A dimension repeats its geometry for each marker of its end, which takes no more than 25 bytes.
    if (outcome.lines < 0 || static_cast<std::size_t>(outcome.lines) > size + 10)
        return "reads " + std::to_string(outcome.lines) + " lines";
    if (outcome.reads > size + 2)
        return "reads the source " + std::to_string(outcome.reads) + " times";
    if (outcome.calls > size + 20)
        return "calls the host " + std::to_string(outcome.calls) + " times";
    if (outcome.leaked != 0)
        return "leaks " + std::to_string(outcome.leaked) + " blocks";

    const auto isBefore = [&](const Outcome::Message& message) { return message.line < line; };
    const auto& now = outcome.messages;
    const auto& then = whole.outcome.messages;
    const auto nowEnd = std::find_if_not(now.begin(), now.end(), isBefore);
    if (!std::equal(now.begin(), nowEnd, then.begin(), std::find_if_not(then.begin(), then.end(), isBefore)))
        return "reports other things before line " + std::to_string(line);

    const std::size_t at = std::min(static_cast<std::size_t>(line), whole.keptBefore.size() - 1);
    const KeptCount& kept = whole.keptBefore[at];
    std::string fault = Compare("table entry", outcome.tables, whole.outcome.tables, kept.tables);
    if (!fault.empty() || outcome.tables != whole.outcome.tables)
        return fault; // what is drawn depends on all the tables
    fault = Compare("block or its entity", outcome.blocks, whole.outcome.blocks, kept.blocks);
    return fault.empty() ? Compare("entity", outcome.entities, whole.outcome.entities, kept.entities) : fault;
}

void CutAtEveryByte(const std::string& drawing, std::size_t step, const OnFaulty& on)
{
    std::int32_t line = 1;
    for (std::size_t at = 0; at < drawing.size(); ++at) {
        if (at % step == 0)
            on({drawing.substr(0, at), line});
        line += drawing[at] == '\n';
    }
}

void ReplaceEveryByte(const std::string& drawing, char by, std::size_t step, const OnFaulty& on)
{
    std::int32_t line = 1;
    for (std::size_t at = 0; at < drawing.size(); ++at) {
        if (at % step == 0) {
            std::string faulty = drawing;
            faulty[at] = by;
            on({std::move(faulty), line});
        }
        line += drawing[at] == '\n';
    }
}

void DisturbEveryLine(const std::string& drawing, std::size_t step, const OnFaulty& on)
{
    const std::vector<std::string_view> lines = LinesOf(drawing);
    std::size_t begin = 0;
    for (std::size_t i = 0; i < lines.size(); begin += lines[i++].size()) {
        if (i % step != 0)
            continue;
        const std::string before = drawing.substr(0, begin);
        const std::string line(lines[i]), after = drawing.substr(begin + line.size());
        const std::int32_t number = static_cast<std::int32_t>(i) + 1;
        on({before + after, number});
        on({before + line + line + after, number + 1});
        if (i + 1 < lines.size())
            on({before + std::string(lines[i + 1]) + line + after.substr(lines[i + 1].size()), number});
    }
}

bool IsSweptInFull()
{
    const char* const value = std::getenv("PLEXORN_FULL");
    return value != nullptr && std::string_view(value) == "1";
}

std::size_t SweepStep(std::size_t whereItIsSlow)
{
    if (const char* const step = std::getenv("PLEXORN_SWEEP_STEP"))
        return static_cast<std::size_t>(std::max(1, std::atoi(step)));
    return IsSweptInFull() || (kIsOptimized && kMillion == 1'000'000) ? 1 : whereItIsSlow;
}
