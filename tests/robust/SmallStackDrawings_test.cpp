// A thread with a small stack draws what any other draws: every drawing of the sweeps, with the longest
// numbers, and where memory runs out and all is unwound. (A host may call from any thread it likes.)
#include "support/SmallStack.h"

#include "entry/dxfFileOpen.h"
#include "support/RecordingHost.h"
#include "support/Sweep.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr std::size_t kOrdinaryStack = 8 * 1024 * 1024;

// The trace of an import through the export.
std::string ImportOf(const std::string& drawing)
{
    const TempFile file(drawing);
    RecordingHost& host = RecordingHost::OfThread();
    host.Reset();
    const bool returned = dxfFileOpen(file.WidePath().c_str(), RecordingHost::Context());
    return (returned ? "" : "false\n") + host.Trace();
}

// The small stack's turn comes first, and what is done only once in a process is done there. The other thread
// is started in the same way: on Windows the runtime of some compilers has its own threads reckon the sines
// of huge angles with more digits than those that the system starts.
std::string ExpectSameOnSmallStack(const SweptDrawing& drawing)
{
    std::string onSmall, onOrdinary;
    EXPECT_TRUE(RunOnSmallStack([&] { onSmall = ImportOf(drawing.bytes); }));
    EXPECT_TRUE(RunOnSmallStack([&] { onOrdinary = ImportOf(drawing.bytes); }, kOrdinaryStack));
    EXPECT_EQ(onSmall, onOrdinary) << drawing.name;
    return onSmall;
}

// The drawing with the largest numbers that there are in place of its coordinates, lengths and angles.
std::string WithHugeNumbers(const std::string& drawing)
{
    std::string huge, code;
    bool isCode = true;
    for (std::size_t begin = 0; begin < drawing.size(); isCode = !isCode) {
        const std::size_t end = std::min(drawing.find('\n', begin), drawing.size() - 1) + 1;
        const std::string line = drawing.substr(begin, end - begin);
        begin = end;
        if (isCode)
            code = line;
        const int number = std::atoi(code.c_str());
        const bool isReal = (number >= 10 && number < 60) || (number >= 210 && number < 240);
        huge += !isCode && isReal ? (number % 3 == 0 ? "-1e308\n" : "1.7e308\n") : line;
    }
    return huge;
}

} // namespace

TEST(SmallStackOfAnyDrawing, DrawsTheSame)
{
    for (const SweptDrawing& drawing : SweptDrawings())
        EXPECT_NE(ExpectSameOnSmallStack(drawing), "") << drawing.name;
}

TEST(SmallStackOfAnyDrawing, DrawsHugeNumbersTheSame)
{
    std::size_t digits = 0; // the most in a row
    for (const SweptDrawing& drawing : SweptDrawings()) {
        const std::string trace = ExpectSameOnSmallStack({drawing.name, WithHugeNumbers(drawing.bytes)});
        for (std::size_t begin = 0; (begin = trace.find_first_of("0123456789", begin)) != trace.npos;) {
            const std::size_t end = std::min(trace.find_first_not_of("0123456789", begin), trace.size());
            digits = std::max(digits, end - begin);
            begin = end;
        }
    }
    EXPECT_GE(digits, 300u) << "none of the numbers is written out";
}

TEST(SmallStackOfAnyDrawing, IsUnwoundWhereMemoryFails)
{
    constexpr std::size_t kPlaces = 8;
    for (const SweptDrawing& drawing : SweptDrawings()) {
        const std::size_t allocations = OutcomeOf(drawing.bytes).allocations;
        for (std::size_t place = 0; place < kPlaces; ++place) {
            SweepOptions options;
            options.failingAllocation = 1 + allocations * place / kPlaces;
            options.which = place % 2 == 0 ? FailingMemory::Which::Nth : FailingMemory::Which::NthAndLater;
            Outcome onSmall;
            ASSERT_TRUE(RunOnSmallStack([&] { onSmall = OutcomeOf(drawing.bytes, options); }));
            const Outcome expected = OutcomeOf(drawing.bytes, options);
            SCOPED_TRACE(drawing.name + ' ' + std::to_string(options.failingAllocation));
            EXPECT_TRUE(onSmall.memoryFailed);
            EXPECT_EQ(onSmall.leaked, 0u);
            EXPECT_EQ(onSmall.tables, expected.tables);
            EXPECT_EQ(onSmall.blocks, expected.blocks);
            EXPECT_EQ(onSmall.entities, expected.entities);
            EXPECT_TRUE(onSmall.messages == expected.messages);
            EXPECT_EQ(onSmall.lines, expected.lines);
        }
    }
}
