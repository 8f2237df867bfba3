// Every small drawing with every small fault: the import returns, nothing leaks, the work is in proportion,
// what comes before the fault is drawn, and all that is read and reported, the fault itself and what follows
// it included, is what a plain reading of the same bytes gives.
#include "support/Sweep.h"

#include "fuzz/PlainReading.h"
#include "support/Import.h"
#include "support/ReadingText.h"
#include "support/Sources.h"
#include "support/TestScale.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

const SweptDrawing& Drawing(const std::string& name)
{
    const auto& drawings = SweptDrawings();
    return *std::find_if(drawings.begin(), drawings.end(),
                         [&](const auto& drawing) { return drawing.name == name; });
}

std::vector<std::string> Names()
{
    std::vector<std::string> names;
    for (const SweptDrawing& drawing : SweptDrawings())
        names.push_back(drawing.name);
    return names;
}

constexpr std::size_t kStep = 7; // prime to the lengths of what repeats in drawings

// Where what is read of a drawing begins to differ from its plain reading, "" when it does not.
std::string MisreadIn(std::string_view drawing)
{
    CallbackReader reader;
    reader.ReadText(drawing);
    const std::string read = ReadingText(reader), plain = ReadPlainly(drawing);
    if (read == plain)
        return {};
    const auto differ = std::mismatch(read.begin(), read.end(), plain.begin(), plain.end()).first;
    const std::size_t at = read.rfind('\n', static_cast<std::size_t>(differ - read.begin())) + 1;
    return "reads:\n" + read.substr(at, 300) + "\nand plainly read it is:\n" +
           plain.substr(std::min(at, plain.size()), 300);
}

// Of that many faults that are made one is read plainly, which takes its time: all where there is time or
// where only few are made.
std::size_t PlainStep()
{
    return (kIsOptimized && IsSweptInFull()) || SweepStep(1) > kStep ? 1 : 7;
}

class Sweep : public testing::TestWithParam<std::string> {
protected:
    const std::string& Bytes() const { return Drawing(GetParam()).bytes; }

    // The faults that are read plainly too begin with the one of that number, 0 to 4: the sweeps over bytes
    // take different ones.
    OnFaulty ExpectNoFaults(std::size_t readPlainly)
    {
        return [this, readPlainly](const Faulty& faulty) {
            const bool isReadPlainly = m_count % PlainStep() == readPlainly % PlainStep();
            ++m_count;
            const std::string exact(faulty.bytes); // ends where its memory ends
            std::string faults = FaultsOf(OutcomeOf(exact), m_whole, faulty.line, exact.size());
            if (isReadPlainly)
                faults += MisreadIn(exact);
            if (!faults.empty() && !HasFailure())
                ADD_FAILURE() << faults << "\nwith a fault in line " << faulty.line << " of\n"
                              << faulty.bytes;
        };
    }

    // Every step-th of so many faults has been made.
    void ExpectCount(std::size_t most, std::size_t step) const
    {
        EXPECT_EQ(m_count, (most + step - 1) / step);
    }

    void SetUp() override { m_whole = WholeDrawing(Bytes()); }

    WholeImport m_whole;
    std::size_t m_count = 0;
};

bool IsMessage(const Outcome::Message& message, std::string_view start)
{
    return message.text.substr(0, start.size()) == start;
}

constexpr std::string_view kReadFailed = "0 11 CDxfRead Failed to read file, Line:";
constexpr std::string_view kOutOfMemory = "0 12 CDxfRead Out of memory, Line:";
constexpr std::string_view kShortage = "qlmSetLastError(0, \"DXF\", 12, \"CDxfRead Out of memory, Line:";

void ExpectSame(const Outcome& outcome, const Outcome& expected)
{
    EXPECT_EQ(outcome.tables, expected.tables);
    EXPECT_EQ(outcome.blocks, expected.blocks);
    EXPECT_EQ(outcome.entities, expected.entities);
    EXPECT_TRUE(outcome.messages == expected.messages);
    EXPECT_EQ(outcome.lines, expected.lines);
    EXPECT_EQ(outcome.leaked, 0u);
}

} // namespace

// A fault earlier than is said is found: in a layer, in a block, in an entity, in a message.
TEST(SweepItself, FindsWhatAFaultChangesBeforeItsLine)
{
    const std::string& drawing = Drawing("groups").bytes;
    const WholeImport whole = WholeDrawing(drawing);
    EXPECT_EQ(FaultsOf(OutcomeOf(drawing), whole, 999, drawing.size()), "");
    const auto faultsOf = [&](const std::string& old, const std::string& changed) {
        std::string faulty = drawing;
        const std::size_t at = faulty.find(old);
        EXPECT_NE(at, std::string::npos) << old;
        const auto line =
            1 + std::count(faulty.begin(), faulty.begin() + static_cast<std::ptrdiff_t>(at), '\n');
        faulty.replace(at, old.size(), changed);
        const Outcome outcome = OutcomeOf(faulty);
        EXPECT_EQ(FaultsOf(outcome, whole, static_cast<std::int32_t>(line), faulty.size()), "") << old;
        return FaultsOf(outcome, whole, 999, faulty.size()).substr(0, 5);
    };
    EXPECT_EQ(faultsOf(" 62\n3\n", " 62\n4\n"), "table");
    EXPECT_EQ(faultsOf(" 11\n1\n", " 11\n3\n"), "block");
    EXPECT_EQ(faultsOf(" 11\n2\n", " 11\n3\n"), "entit");
    EXPECT_EQ(faultsOf(" 11\n2\n", "999\n2\n"), "repor");
}

TEST_P(Sweep, IsReadLineByLineAsItIsInOnePiece)
{
    ExpectSame(m_whole.outcome, OutcomeOf(Bytes()));
}

TEST_P(Sweep, CutAtEveryByte)
{
    CutAtEveryByte(Bytes(), SweepStep(kStep), ExpectNoFaults(0));
    ExpectCount(Bytes().size(), SweepStep(kStep));
}

TEST_P(Sweep, WithEveryByteZero)
{
    ReplaceEveryByte(Bytes(), '\0', SweepStep(kStep), ExpectNoFaults(1));
    ExpectCount(Bytes().size(), SweepStep(kStep));
}

TEST_P(Sweep, WithEveryByte255)
{
    ReplaceEveryByte(Bytes(), '\xFF', SweepStep(kStep), ExpectNoFaults(2));
    ExpectCount(Bytes().size(), SweepStep(kStep));
}

TEST_P(Sweep, WithALineFeedForEveryByte)
{
    ReplaceEveryByte(Bytes(), '\n', SweepStep(kStep), ExpectNoFaults(3));
    ExpectCount(Bytes().size(), SweepStep(kStep));
}

TEST_P(Sweep, WithADigitForEveryByte)
{
    ReplaceEveryByte(Bytes(), '9', SweepStep(kStep), ExpectNoFaults(4));
    ExpectCount(Bytes().size(), SweepStep(kStep));
}

TEST_P(Sweep, WithEveryLineDeletedDoubledAndSwapped)
{
    const std::size_t step = SweepStep(3);
    DisturbEveryLine(Bytes(), step, ExpectNoFaults(0));
    // The last line has none after it to be swapped with.
    const auto lines = static_cast<std::size_t>(std::count(Bytes().begin(), Bytes().end(), '\n')) +
                       (Bytes().back() == '\n' ? 0 : 1);
    EXPECT_EQ(m_count, 3 * ((lines + step - 1) / step) - ((lines - 1) % step == 0 ? 1 : 0));
}

// Where reading fails the file ends, but for the message.
TEST_P(Sweep, ReadingFailsAtEveryByte)
{
    CutAtEveryByte(Bytes(), SweepStep(kStep), [this](const Faulty& faulty) {
        ++m_count;
        const Outcome cut = OutcomeOf(faulty.bytes);
        FailingReads source(faulty.bytes);
        Outcome failed = OutcomeOf(source);
        const auto isReadFailed = [](const auto& message) { return IsMessage(message, kReadFailed); };
        EXPECT_EQ(std::count_if(failed.messages.begin(), failed.messages.end(), isReadFailed),
                  cut.hasEnded ? 1 : 0);
        std::erase_if(failed.messages, isReadFailed);
        ExpectSame(failed, cut);
    });
    ExpectCount(Bytes().size(), SweepStep(kStep));
}

TEST_P(Sweep, ReadInPiecesOfAnySize)
{
    for (const std::size_t most : {1u, 2u, 3u, 7u, 63u, 64u, 65u}) {
        ShortReads source(Bytes(), most);
        const Outcome outcome = OutcomeOf(source);
        ExpectSame(outcome, m_whole.outcome);
        EXPECT_LE(outcome.reads, Bytes().size() / most + 2);
    }
    RandomReads source(Bytes(), 100, 1);
    ExpectSame(OutcomeOf(source), m_whole.outcome);
}

// The node that is given for a created one is that of the answer, and an answer of 0 changes nothing else.
TEST_P(Sweep, TheHostAnswersZeroToEverything)
{
    SweepOptions options;
    options.refuseAll = true;
    const auto withoutNodes = [](const std::vector<std::string>& drawn) {
        std::vector<std::string> without;
        for (std::string text : drawn) {
            for (std::size_t at = 0; (at = text.find_first_of("n", at)) != std::string::npos; ++at) {
                const std::size_t end = text.find_first_not_of("0123456789", at + 1);
                if (at >= 1 && text[at - 1] == ' ' && end != at + 1)
                    text.replace(at, std::min(end, text.size()) - at, "0");
            }
            const std::size_t set = text.find("qlmSetCurrentSvgNode(ctx, 0)\nqlmCreateSymbol(");
            if (set != std::string::npos) { // no symbol is entered that there is not
                const std::size_t entered = text.find("qlmSetCurrentSvgNode(", text.find("qlmCreateSymbol("));
                text.erase(entered, text.find('\n', entered) + 1 - entered);
            }
            without.push_back(text);
        }
        return without;
    };
    const Outcome refused = OutcomeOf(Bytes(), options);
    EXPECT_EQ(refused.tables, m_whole.outcome.tables);
    EXPECT_TRUE(refused.messages == m_whole.outcome.messages);
    EXPECT_EQ(refused.entities, withoutNodes(m_whole.outcome.entities));
    EXPECT_EQ(refused.leaked, 0u);
    EXPECT_EQ(refused.blocks, withoutNodes(m_whole.outcome.blocks));
}

namespace {

// How often a shortage has been reported while drawing.
std::size_t CountShortages(const std::vector<std::string>& drawn)
{
    std::size_t count = 0;
    for (const std::string& text : drawn)
        for (std::size_t at = 0; (at = text.find(kShortage, at)) != std::string::npos; ++at)
            ++count;
    return count;
}

// What an entity has drawn before it met a shortage: the beginning of what it would have drawn. A dimension
// leaves its group all the same.
bool IsBeginning(std::string drawn, const std::string& whole)
{
    constexpr std::string_view kLeave = "qlmSetCurrentSvgNode(ctx, 0)\n";
    drawn = Without(kShortage, drawn);
    if (drawn.ends_with(kLeave) && drawn != whole)
        drawn.resize(drawn.size() - kLeave.size());
    return whole.starts_with(drawn);
}

// How many of the first so many records are there in part only; each of them says that memory was short.
std::size_t CountPartial(const std::vector<std::string>& drawn, const std::vector<std::string>& whole,
                         std::size_t count)
{
    std::size_t partial = 0;
    for (std::size_t i = 0; i < std::min({count, drawn.size(), whole.size()}); ++i) {
        if (drawn[i] == whole[i])
            continue;
        ++partial;
        EXPECT_TRUE(IsBeginning(drawn[i], whole[i])) << drawn[i] << "\nis no part of\n" << whole[i];
        EXPECT_GE(CountShortages({drawn[i]}), 1u) << "no shortage is reported:\n" << drawn[i];
    }
    return partial;
}

// Reading ended at a shortage, the last message; what was kept by then is drawn.
void ExpectReadUpToAShortage(const Outcome& outcome, const WholeImport& whole, std::size_t size,
                             FailingMemory::Which which)
{
    const Outcome::Message& shortage = outcome.messages.back();
    EXPECT_EQ(shortage.text, std::string(kOutOfMemory) + std::to_string(shortage.line));
    EXPECT_EQ(std::count_if(outcome.messages.begin(), outcome.messages.end(),
                            [](const auto& message) { return IsMessage(message, kOutOfMemory); }),
              1);
    if (which == FailingMemory::Which::Nth) {
        EXPECT_EQ(FaultsOf(outcome, whole, shortage.line, size), "");
        EXPECT_EQ(CountShortages(outcome.blocks) + CountShortages(outcome.entities), 0u);
    } else if (outcome.tables == whole.outcome.tables) {
        // The last record that was read may hold less than all of its fields.
        const bool isInEntities = !outcome.entities.empty();
        CountPartial(outcome.blocks, whole.outcome.blocks, outcome.blocks.size() - (isInEntities ? 0 : 1));
        CountPartial(outcome.entities, whole.outcome.entities,
                     outcome.entities.size() - (isInEntities ? 1 : 0));
    }
}

// Everything was read. A shortage cost one entity and was reported once, or it cost every entity that needed
// memory.
void ExpectDrawnUpToAShortage(const Outcome& outcome, const Outcome& whole, FailingMemory::Which which)
{
    EXPECT_TRUE(outcome.messages == whole.messages);
    ASSERT_EQ(outcome.blocks.size(), whole.blocks.size());
    ASSERT_EQ(outcome.entities.size(), whole.entities.size());
    const std::size_t partial = CountPartial(outcome.blocks, whole.blocks, whole.blocks.size()) +
                                CountPartial(outcome.entities, whole.entities, whole.entities.size());
    EXPECT_GE(partial, 1u);
    if (which == FailingMemory::Which::Nth) {
        EXPECT_EQ(partial, 1u);
        EXPECT_EQ(CountShortages(outcome.blocks) + CountShortages(outcome.entities), 1u);
    }
}

} // namespace

// Met while reading, a shortage ends it there; met while drawing, it costs the entity alone.
TEST_P(Sweep, EveryAllocationFails)
{
    for (const auto which : {FailingMemory::Which::Nth, FailingMemory::Which::NthAndLater})
        for (std::size_t n = 1; n <= m_whole.outcome.allocations && !HasFailure(); ++n) {
            SCOPED_TRACE(n);
            SweepOptions options;
            options.failingAllocation = n;
            options.which = which;
            const Outcome outcome = OutcomeOf(Bytes(), options);
            ASSERT_TRUE(outcome.memoryFailed);
            ASSERT_EQ(outcome.leaked, 0u);
            if (!outcome.messages.empty() && IsMessage(outcome.messages.back(), kOutOfMemory))
                ExpectReadUpToAShortage(outcome, m_whole, Bytes().size(), which);
            else
                ExpectDrawnUpToAShortage(outcome, m_whole.outcome, which);
        }
}

INSTANTIATE_TEST_SUITE_P(Of, Sweep, testing::ValuesIn(Names()),
                         [](const auto& drawing) { return drawing.param; });
