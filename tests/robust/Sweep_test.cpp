// Every small drawing with every small fault: the import returns, nothing leaks, the work is in proportion,
// the fault is told, and what stands before it is drawn.
#include "support/Sweep.h"

#include "support/Import.h"
#include "support/Sources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

const SWEPT_DRAWING& Drawing(const std::string& name)
{
    const auto& drawings = SweptDrawings();
    return *std::find_if(drawings.begin(), drawings.end(),
                         [&](const auto& drawing) { return drawing.name == name; });
}

std::vector<std::string> Names()
{
    std::vector<std::string> names;
    for (const SWEPT_DRAWING& drawing : SweptDrawings())
        names.push_back(drawing.name);
    return names;
}

class Sweep : public testing::TestWithParam<std::string> {
protected:
    const std::string& Bytes() const { return Drawing(GetParam()).bytes; }

    ON_FAULTY ExpectNoFaults()
    {
        return [this](const FAULTY& faulty) {
            ++m_count;
            const std::string exact(faulty.bytes); // ends where its memory ends
            const std::string faults = FaultsOf(OutcomeOf(exact), m_whole, faulty.line, exact.size());
            if (!faults.empty() && !HasFailure())
                ADD_FAILURE() << faults << "\nwith a fault in line " << faulty.line << " of\n"
                              << faulty.bytes;
        };
    }

    void SetUp() override { m_whole = WholeDrawing(Bytes()); }

    WHOLE_DRAWING m_whole;
    std::size_t m_count = 0;
};

constexpr std::size_t kStep = 7; // prime to the lengths of what repeats in drawings

bool IsMessage(const OUTCOME::MESSAGE& message, std::string_view start)
{
    return message.text.substr(0, start.size()) == start;
}

constexpr std::string_view kReadFailed = "0 11 CDxfRead Failed to read file, Line:";
constexpr std::string_view kOutOfMemory = "0 12 CDxfRead Out of memory, Line:";

void ExpectSame(const OUTCOME& outcome, const OUTCOME& expected)
{
    EXPECT_EQ(outcome.tables, expected.tables);
    EXPECT_EQ(outcome.blocks, expected.blocks);
    EXPECT_EQ(outcome.entities, expected.entities);
    EXPECT_TRUE(outcome.messages == expected.messages);
    EXPECT_EQ(outcome.lines, expected.lines);
    EXPECT_EQ(outcome.leaked, 0u);
}

} // namespace

TEST(SweptDrawings, AreManyAndReachEveryReader)
{
    EXPECT_GE(SweptDrawings().size(), 20u);
    std::set<std::string> created;
    std::set<int> kinds;
    for (const SWEPT_DRAWING& drawing : SweptDrawings()) {
        const OUTCOME outcome = OutcomeOf(drawing.bytes);
        for (const auto* list : {&outcome.blocks, &outcome.entities})
            for (const std::string& drawn : *list)
                created.insert(drawn.substr(0, drawn.find('(')));
        for (const OUTCOME::MESSAGE& message : outcome.messages)
            kinds.insert(std::stoi(message.text.substr(2)));
    }
    for (const char* call : {"qlmCreateLine", "qlmCreatePath", "qlmCreateCircle", "qlmCreatePolyline",
                             "qlmCreatePolygon", "qlmCreateText", "qlmCreateUse"})
        EXPECT_EQ(created.count(call), 1u) << call;
    EXPECT_EQ(kinds, (std::set<int>{2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

// A fault that stands earlier than is said is found: in a layer, in a block, in an entity, in a message.
TEST(SweepItself, TellsWhatAFaultChangesBeforeItsLine)
{
    const std::string& drawing = Drawing("groups").bytes;
    const WHOLE_DRAWING whole = WholeDrawing(drawing);
    EXPECT_EQ(FaultsOf(OutcomeOf(drawing), whole, 999, drawing.size()), "");
    const auto faultsOf = [&](const std::string& old, const std::string& changed) {
        std::string faulty = drawing;
        const std::size_t at = faulty.find(old);
        EXPECT_NE(at, std::string::npos) << old;
        const auto line =
            1 + std::count(faulty.begin(), faulty.begin() + static_cast<std::ptrdiff_t>(at), '\n');
        faulty.replace(at, old.size(), changed);
        const OUTCOME outcome = OutcomeOf(faulty);
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
    CutAtEveryByte(Bytes(), SweepStep(kStep), ExpectNoFaults());
    EXPECT_GE(m_count, 1u);
}

TEST_P(Sweep, WithEveryByteZero)
{
    ReplaceEveryByte(Bytes(), '\0', SweepStep(kStep), ExpectNoFaults());
    EXPECT_GE(m_count, 1u);
}

TEST_P(Sweep, WithEveryByte255)
{
    ReplaceEveryByte(Bytes(), '\xFF', SweepStep(kStep), ExpectNoFaults());
    EXPECT_GE(m_count, 1u);
}

TEST_P(Sweep, WithALineFeedForEveryByte)
{
    ReplaceEveryByte(Bytes(), '\n', SweepStep(kStep), ExpectNoFaults());
    EXPECT_GE(m_count, 1u);
}

TEST_P(Sweep, WithADigitForEveryByte)
{
    ReplaceEveryByte(Bytes(), '9', SweepStep(kStep), ExpectNoFaults());
    EXPECT_GE(m_count, 1u);
}

TEST_P(Sweep, WithEveryLineDeletedDoubledAndSwapped)
{
    DisturbEveryLine(Bytes(), SweepStep(3), ExpectNoFaults());
    EXPECT_GE(m_count, 1u);
}

// Where reading fails the file ends, but for the message.
TEST_P(Sweep, ReadingFailsAtEveryByte)
{
    CutAtEveryByte(Bytes(), SweepStep(kStep), [](const FAULTY& faulty) {
        const OUTCOME cut = OutcomeOf(faulty.bytes);
        FailingReads source(faulty.bytes);
        OUTCOME failed = OutcomeOf(source);
        const auto isReadFailed = [](const auto& message) { return IsMessage(message, kReadFailed); };
        EXPECT_EQ(std::count_if(failed.messages.begin(), failed.messages.end(), isReadFailed),
                  cut.hasEnded ? 1 : 0);
        std::erase_if(failed.messages, isReadFailed);
        ExpectSame(failed, cut);
    });
}

TEST_P(Sweep, ReadInPiecesOfAnySize)
{
    for (const std::size_t most : {1u, 2u, 3u, 7u, 63u, 64u, 65u}) {
        ShortReads source(Bytes(), most);
        const OUTCOME outcome = OutcomeOf(source);
        ExpectSame(outcome, m_whole.outcome);
        EXPECT_LE(outcome.reads, Bytes().size() / most + 2);
    }
    RandomReads source(Bytes(), 100, 1);
    ExpectSame(OutcomeOf(source), m_whole.outcome);
}

// The node that is given for a created one is that of the answer, and an answer of 0 changes nothing else.
TEST_P(Sweep, TheHostAnswersZeroToEverything)
{
    SWEEP_OPTIONS options;
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
    const OUTCOME refused = OutcomeOf(Bytes(), options);
    EXPECT_EQ(refused.tables, m_whole.outcome.tables);
    EXPECT_TRUE(refused.messages == m_whole.outcome.messages);
    EXPECT_EQ(refused.entities, withoutNodes(m_whole.outcome.entities));
    EXPECT_EQ(refused.leaked, 0u);
    EXPECT_EQ(refused.blocks, withoutNodes(m_whole.outcome.blocks));
}

namespace {

// What an entity has drawn before it met a shortage: the beginning of what it would have drawn. A dimension
// leaves its group all the same.
bool IsBeginning(std::string drawn, const std::string& whole)
{
    constexpr std::string_view kLeave = "qlmSetCurrentSvgNode(ctx, 0)\n";
    drawn = Without("qlmSetLastError(0, \"DXF\", 12, \"CDxfRead Out of memory, Line:", drawn);
    if (drawn.ends_with(kLeave) && drawn != whole)
        drawn.resize(drawn.size() - kLeave.size());
    return whole.starts_with(drawn);
}

// How many of the records are there in part only.
std::size_t CountPartial(const std::vector<std::string>& drawn, const std::vector<std::string>& whole)
{
    std::size_t partial = 0;
    for (std::size_t i = 0; i < std::min(drawn.size(), whole.size()); ++i) {
        partial += drawn[i] != whole[i];
        EXPECT_TRUE(IsBeginning(drawn[i], whole[i])) << drawn[i] << "\nis no part of\n" << whole[i];
    }
    return partial;
}

} // namespace

// Met while reading, a shortage ends it there; met while drawing, it costs the entity alone.
TEST_P(Sweep, EveryAllocationFails)
{
    for (const auto which : {FailingMemory::WHICH::Nth, FailingMemory::WHICH::NthAndLater})
        for (std::size_t n = 1; n <= m_whole.outcome.allocations && !HasFailure(); ++n) {
            SCOPED_TRACE(n);
            SWEEP_OPTIONS options;
            options.failingAllocation = n;
            options.which = which;
            const OUTCOME outcome = OutcomeOf(Bytes(), options);
            ASSERT_TRUE(outcome.memoryFailed);
            ASSERT_EQ(outcome.leaked, 0u);
            const auto shortage =
                std::find_if(outcome.messages.begin(), outcome.messages.end(),
                             [](const auto& message) { return IsMessage(message, kOutOfMemory); });
            if (shortage != outcome.messages.end()) {
                EXPECT_EQ(std::next(shortage), outcome.messages.end()) << "nothing is read behind a shortage";
                EXPECT_EQ(shortage->text, std::string(kOutOfMemory) + std::to_string(shortage->line));
                if (which == FailingMemory::WHICH::Nth) {
                    EXPECT_EQ(FaultsOf(outcome, m_whole, shortage->line, Bytes().size()), "");
                }
            } else {
                EXPECT_TRUE(outcome.messages == m_whole.outcome.messages);
                const std::size_t partial = CountPartial(outcome.blocks, m_whole.outcome.blocks) +
                                            CountPartial(outcome.entities, m_whole.outcome.entities);
                EXPECT_GE(partial, 1u);
                if (which == FailingMemory::WHICH::Nth) {
                    EXPECT_EQ(partial, 1u);
                }
            }
        }
}

INSTANTIATE_TEST_SUITE_P(Of, Sweep, testing::ValuesIn(Names()),
                         [](const auto& drawing) { return drawing.param; });
