// Memory may run out at any allocation: the call returns, what was read before is drawn, the shortage is
// reported, and nothing is leaked.
#include "support/FailingMemory.h"

#include "entry/dxfFileOpen.h"
#include "support/Dxf.h"
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
    std::string pattern, entities, points;
    for (int i = 0; i < 6000; ++i)
        pattern += Dxf({{49, i + 0.5}});
    for (int i = 0; i < 4; ++i) // each writes that text into the trace
        entities += Dxf({{0, "LINE"}, {8, i % 2 == 0 ? "WALLS" : "DOORS"}, {370, i + 1}});
    for (int i = 0; i < 100; ++i)
        entities += Dxf({{0, "TEXT"},
                         {8, "WALLS"},
                         {1, std::string(800, 'x')},
                         {0, "INSERT"},
                         {2, "B" + std::to_string(i)}});
    for (int i = 0; i < 5000; ++i)
        points += Dxf({{10, i}, {20, 1}});
    return Section("TABLES", Dxf({{0, "TABLE"}, {2, "LTYPE"}, {0, "LTYPE"}, {100, "A"}, {2, "LONG"}}) +
                                 pattern +
                                 Dxf({{0, "ENDTAB"},
                                      {0, "TABLE"},
                                      {2, "LAYER"},
                                      {0, "LAYER"},
                                      {100, "A"},
                                      {2, "WALLS"},
                                      {6, "LONG"},
                                      {62, 1},
                                      {370, 70},
                                      {0, "LAYER"},
                                      {100, "A"},
                                      {2, "DOORS"},
                                      {6, "LONG"},
                                      {62, 5},
                                      {0, "ENDTAB"}})) +
           Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "B"}, {0, "LINE"}, {8, "WALLS"}, {0, "ENDBLK"}})) +
           SectionAlone("ENTITIES", entities + Dxf({{0, "LWPOLYLINE"}}) + points +
                                        Dxf({{0, "LINE"},
                                             {102, "{G"},
                                             {330, "1F"},
                                             {102, "}"},
                                             {0, "DIMENSION"},
                                             {100, "AcDbDimension"},
                                             {1, "A{B};\\S1^2;C<>"},
                                             {100, "AcDbRadialDimension"},
                                             {15, 1}}));
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
    const TempFile file(SectionAlone("ENTITIES", Repeat({{0, "LINE"}, {11, 1}}, 20'000)));
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
        Section("ENTITIES", Dxf({{0, "LINE"}, {370, 1}, {0, "LINE"}, {370, 2}, {0, "LINE"}, {370, 3}})));
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
