// Memory may run out at any allocation: the call returns, what was read before is drawn, the shortage is
// reported, and nothing is leaked.
#include "support/FailingMemory.h"

#include "entry/dxfFileOpen.h"
#include "support/RecordingHost.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using Which = FailingMemory::Which;

struct Result {
    bool returned = false;
    bool failed = false;
    std::size_t allocations = 0;
    std::size_t leaked = 0;
    std::string trace;
};

Result ImportWithFailure(const std::wstring& path, std::size_t n, Which which = Which::Nth)
{
    RecordingHost::OfThread().Reset();
    Result result;
    {
        FailingMemory memory(n, which);
        result.returned = dxfFileOpen(path.c_str(), RecordingHost::Context());
        result.failed = memory.HasFailed();
        result.allocations = memory.Allocations();
        result.leaked = memory.Live();
    }
    result.trace = RecordingHost::OfThread().Trace();
    return result;
}

std::size_t CountOf(const std::string& part, const std::string& text)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

// The attribute names and values that a trace sets, without the nodes.
std::set<std::string> AttributesOf(const std::string& trace)
{
    std::set<std::string> attributes;
    const std::string call = "qlmSetAttributeByNode(ctx, ";
    for (std::size_t at = trace.find(call); at != std::string::npos; at = trace.find(call, at + 1)) {
        const std::size_t begin = trace.find(", ", at + call.size());
        attributes.insert(trace.substr(begin, trace.find('\n', at) - begin));
    }
    return attributes;
}

// A line type whose dash text is larger than a chunk of storage, used through two layers, lines of several
// styles, texts, and a polyline of many vertices.
std::string LargeDrawing()
{
    std::string drawing = "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLTYPE\n0\nLTYPE\n100\nA\n2\nLONG\n";
    for (int i = 0; i < 6000; ++i)
        drawing += "49\n" + std::to_string(i) + ".5\n";
    drawing += "0\nENDTAB\n0\nTABLE\n2\nLAYER\n0\nLAYER\n100\nA\n2\nWALLS\n6\nLONG\n62\n1\n370\n70\n"
               "0\nLAYER\n100\nA\n2\nDOORS\n6\nLONG\n62\n5\n0\nENDTAB\n0\nENDSEC\n"
               "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nB\n0\nLINE\n8\nWALLS\n0\nENDBLK\n0\nENDSEC\n"
               "0\nSECTION\n2\nENTITIES\n";
    for (int i = 0; i < 4; ++i) // each writes that text into the trace
        drawing += "0\nLINE\n8\n" + std::string(i % 2 == 0 ? "WALLS" : "DOORS") + "\n370\n" +
                   std::to_string(i + 1) + "\n";
    for (int i = 0; i < 100; ++i)
        drawing +=
            "0\nTEXT\n8\nWALLS\n1\n" + std::string(800, 'x') + "\n0\nINSERT\n2\nB" + std::to_string(i) + "\n";
    drawing += "0\nLWPOLYLINE\n";
    for (int i = 0; i < 5000; ++i)
        drawing += "10\n" + std::to_string(i) + "\n20\n1\n";
    return drawing + "0\nLINE\n102\n{G\n330\n1F\n102\n}\n0\nDIMENSION\n100\nAcDbDimension\n1\nA{B};\\S1^2;"
                     "C<>\n100\nAcDbRadialDimension\n15\n1\n0\nENDSEC\n0\nEOF\n";
}

// Lets each allocation fail until none is left, and says what is wrong with the import that met it.
void FailEachAllocation(const std::wstring& path)
{
    const Result whole = ImportWithFailure(path, 0);
    ASSERT_TRUE(whole.returned);
    ASSERT_EQ(whole.leaked, 0u);
    ASSERT_GT(whole.allocations, 1u);
    std::set<std::string> attributes = AttributesOf(whole.trace);
    // What an entity has that lost what came after the failure.
    attributes.insert({", \"stroke\", \"RGB(255,255,255)\")", ", \"stroke-width\", \"0.500000\")",
                       ", \"stroke-dasharray\", \"\")", ", \"font-size\", \"5.00\")"});

    for (const Which which : {Which::Nth, Which::NthAndLater})
        for (std::size_t n = 1;; ++n) {
            SCOPED_TRACE(n);
            const Result result = ImportWithFailure(path, n, which);
            EXPECT_TRUE(result.returned);
            EXPECT_EQ(result.leaked, 0u);
            const std::size_t messages =
                CountOf("qlmSetLastError(0, \"DXF\", 12, \"CDxfRead Out of memory, Line:", result.trace);
            if (!result.failed) {
                EXPECT_EQ(messages, 0u);
                EXPECT_EQ(result.trace, whole.trace);
                break;
            }
            EXPECT_GE(messages, 1u) << result.trace;
            if (which == Which::Nth) {
                EXPECT_EQ(messages, 1u) << result.trace;
            }
            for (const std::string& attribute : AttributesOf(result.trace))
                EXPECT_TRUE(attributes.count(attribute) == 1) << attribute.substr(0, 200);
            if (testing::Test::HasFailure())
                return;
        }
}

class DrawingInFailingMemory : public testing::TestWithParam<const char*> {};

} // namespace

// Before the reader is there, dxfFileOpen itself says so.
TEST(FailingMemory, ForThePathIsReportedOnLineZero)
{
    const std::wstring path = L"/a/path/that/is/longer/than/what/a/string/holds/in/place.dxf";
    EXPECT_EQ(ImportWithFailure(path, 1).trace,
              "qlmSetLastError(0, \"DXF\", 12, \"CDxfRead Out of memory, Line:0\", false, 0)\n");
}

TEST(FailingMemoryItself, FailsTheAllocationThatItIsAskedTo)
{
    // By function calls: a new and its delete in one expression may be left out by a compiler.
    FailingMemory memory(2);
    ::operator delete(::operator new(1));
    EXPECT_THROW(static_cast<void>(::operator new(2)), std::bad_alloc);
    void* const live = ::operator new(3);
    EXPECT_EQ(memory.Live(), 1u);
    EXPECT_EQ(memory.Allocations(), 3u);
    EXPECT_TRUE(memory.HasFailed());
    ::operator delete(live);
    EXPECT_EQ(memory.Live(), 0u);
}

TEST_P(DrawingInFailingMemory, IsReportedAndNothingLeaks)
{
    FailEachAllocation(
        (std::filesystem::path(PLEXORN_TEST_DATA) / "trace" / (std::string(GetParam()) + ".dxf")).wstring());
}

INSTANTIATE_TEST_SUITE_P(Drawings, DrawingInFailingMemory,
                         testing::Values("bad_blocks", "bad_dimensions", "bad_entities", "bad_tables",
                                         "blocks", "dimensions", "geometry", "polylines", "styles", "texts"),
                         [](const auto& drawing) { return std::string(drawing.param); });

TEST(LargeDrawingInFailingMemory, IsReportedAndNothingLeaks)
{
    const TempFile file(LargeDrawing());
    FailEachAllocation(file.WidePath());
}

// A drawing of lines that needs many chunks: each chunk that fails leaves the lines before it.
TEST(FailingMemory, LeavesWhatWasReadBefore)
{
    std::string drawing = "0\nSECTION\n2\nENTITIES\n";
    for (int i = 0; i < 20'000; ++i)
        drawing += "0\nLINE\n11\n1\n";
    const TempFile file(drawing + "0\nENDSEC\n0\nEOF\n");
    std::size_t before = 0, most = 0;
    for (std::size_t n = 1;; ++n) {
        const Result result = ImportWithFailure(file.WidePath(), n);
        if (!result.failed)
            break;
        const std::size_t lines = CountOf("qlmCreateLine(ctx, \"\", 0, -0, ", result.trace);
        most = std::max(most, lines);
        if (lines < 20'000 && lines > 0) {
            EXPECT_GE(lines, before) << "a later failure leaves no less";
            before = lines;
        }
    }
    EXPECT_GT(most, 1000u);
    EXPECT_GT(before, 0u);
}

// The shortage is met when the entity is drawn: those after it are drawn whole.
TEST(FailingMemory, WhileDrawingCostsOneEntityAlone)
{
    const TempFile file(
        "0\nSECTION\n2\nENTITIES\n0\nLINE\n370\n1\n0\nLINE\n370\n2\n0\nLINE\n370\n3\n0\nENDSEC\n");
    const Result whole = ImportWithFailure(file.WidePath(), 0);
    std::size_t drawings = 0;
    for (std::size_t n = 1; n <= whole.allocations; ++n) {
        const Result result = ImportWithFailure(file.WidePath(), n);
        const std::size_t lines = CountOf("qlmCreateLine(", result.trace);
        if (lines != 3)
            continue; // met while reading
        ++drawings;
        EXPECT_GE(CountOf("\"stroke-dasharray\"", result.trace), 2u) << result.trace;
    }
    EXPECT_GT(drawings, 0u);
}
