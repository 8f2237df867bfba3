// Much of everything: twice the file makes twice the calls, and takes about twice the work.
#include "support/CountedWork.h"
#include "support/FailingMemory.h"
#include "support/Import.h"
#include "support/Scale.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

std::string Repeat(std::string_view text, int count)
{
    std::string repeated;
    repeated.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

std::string InSection(std::string_view name, const std::string& lines)
{
    return "0\nSECTION\n2\n" + std::string(name) + "\n" + lines + "0\nENDSEC\n0\nEOF\n";
}

// A drawing of n of something, and how many calls it makes.
struct ManyCase {
    const char* name;
    std::function<std::string(int)> drawing;
    int callsForEach;
    int otherCalls;
};

const ManyCase kMany[] = {
    {"KnownSections", [](int n) { return Repeat("0\nSECTION\n2\nHEADER\n0\nENDSEC\n", n); }, 0, 0},
    {"UnknownSections", [](int n) { return Repeat("0\nSECTION\n2\nX\n0\nENDSEC\n", n); }, 1, 0},
    {"EntitySections", [](int n) { return Repeat("0\nSECTION\n2\nENTITIES\n0\nLINE\n0\nENDSEC\n", n); }, 4,
     0},
    {"Tables",
     [](int n) { return InSection("TABLES", Repeat("0\nTABLE\n2\nLAYER\n0\nENDTAB\n", n)) + "0\nEOF\n"; }, 0,
     0},
    {"TablesOfEntries",
     [](int n) {
         return InSection("TABLES", Repeat("0\nTABLE\n2\nLAYER\n0\nLAYER\n100\nM\n2\nA\n0\nENDTAB\n", n));
     },
     0, 0},
    {"SkippedTables",
     [](int n) { return InSection("TABLES", Repeat("0\nTABLE\n2\nX\n0\nX\n2\nY\n0\nENDTAB\n", n)); }, 1, 0},
    {"TableEntries",
     [](int n) {
         return InSection("TABLES",
                          "0\nTABLE\n2\nLAYER\n" + Repeat("0\nLAYER\n100\nM\n2\nA\n", n) + "0\nENDTAB\n");
     },
     0, 0},
    {"GroupsOfATable",
     [](int n) {
         return InSection("TABLES", "0\nTABLE\n" + Repeat("102\n{G\n330\n1F\n102\n}\n", n) + "0\nENDTAB\n");
     },
     0, 0},
    {"GroupsOfAnEntity",
     [](int n) { return InSection("ENTITIES", "0\nLINE\n" + Repeat("102\n{G\n330\n1F\n102\n}\n", n)); }, 0,
     4},
    {"LinesOfAGroup",
     [](int n) { return InSection("ENTITIES", "0\nLINE\n102\n{G\n" + Repeat("330\n1F\n", n) + "102\n}\n"); },
     0, 4},
    {"MarkersOfAnEntity",
     [](int n) { return InSection("ENTITIES", "0\nLINE\n" + Repeat("100\nAcDbLine\n", n)); }, 0, 4},
    {"MarkersOfADimension",
     [](int n) { return InSection("ENTITIES", "0\nDIMENSION\n" + Repeat("100\nAcDbEntity\n", n)); }, 0, 0},
    {"PartsOfADimension",
     [](int n) {
         return InSection("ENTITIES",
                          "0\nDIMENSION\n100\nAcDbDimension\n" + Repeat("100\nAcDbDimension\n", n));
     },
     1, 0},
    {"StyleListsOfADimension",
     [](int n) {
         return InSection("ENTITIES", "0\nDIMENSION\n100\nAcDbRotatedDimension\n" +
                                          Repeat("1000\nDSTYLE\n1002\n{\n1070\n1\n1002\n}\n", n));
     },
     0, 0},
    {"UnknownCodes", [](int n) { return InSection("ENTITIES", "0\nLINE\n" + Repeat("999\ncomment\n", n)); },
     1, 4},
    {"UnknownEntities", [](int n) { return InSection("ENTITIES", Repeat("0\nSOLID\n10\n1\n", n)); }, 1, 0},
    {"SkippedEntities", [](int n) { return InSection("ENTITIES", Repeat("0\nPOINT\n10\n1\n", n)); }, 0, 0},
    {"Texts", [](int n) { return InSection("ENTITIES", Repeat("0\nTEXT\n1\ntext\n", n)); }, 3, 0},
    {"Inserts", [](int n) { return InSection("ENTITIES", Repeat("0\nINSERT\n2\nB\n", n)); }, 1, 0},
    {"Vertices", [](int n) { return InSection("ENTITIES", "0\nLWPOLYLINE\n" + Repeat("10\n1\n20\n2\n", n)); },
     0, 4},
    {"Blocks", [](int n) { return InSection("BLOCKS", Repeat("0\nBLOCK\n2\nB\n0\nENDBLK\n", n)); }, 4, 0},
    {"NamesOfNoEntity",
     [](int n) { return InSection("BLOCKS", "0\nBLOCK\n2\nB\n0\n" + Repeat("X\n", n) + "ENDBLK\n"); }, 0, 4},
    {"EmptyLines", [](int n) { return Repeat("\n", n); }, 0, 0},
    {"BadCodes", [](int n) { return InSection("ENTITIES", Repeat("0\nLINE\nx\n1\n", n)); }, 7, 0},
};

void Count(const char* drawing, std::size_t size)
{
    RecordingHost& host = RecordingHost::OfThread();
    host.Reset();
    host.countOnly = true;
    CDxfReadToQuillmar converter(RecordingHost::Context());
    CDxfMemory memory({drawing, size});
    converter.ReadDxfSource(memory);
}

std::size_t AllocationsOf(const std::string& drawing)
{
    const FailingMemory memory(0);
    Count(drawing.data(), drawing.size());
    return memory.Allocations();
}

// Compared by tests/robust/work_test.py.
void RunAtSizes(const std::string& label, const std::function<std::string(int)>& drawing, int count)
{
    for (const int size : {0, count, 2 * count}) {
        const std::string text = drawing(size);
        RunCounted(label, static_cast<std::size_t>(size), [&] {
            Count(text.data(), text.size());
            return RecordingHost::OfThread().callCount;
        });
    }
}

class Many : public testing::TestWithParam<ManyCase> {};

} // namespace

TEST_P(Many, MakeTheirCallsAndAllocateInProportion)
{
    const int count = kMillion / 2;
    const std::string half = GetParam().drawing(count);
    const std::string full = GetParam().drawing(2 * count);
    const std::size_t allocationsOfHalf = AllocationsOf(half);
    const std::size_t allocations = AllocationsOf(full);
    EXPECT_LE(allocations, 2 * allocationsOfHalf + allocationsOfHalf / 5 + 20);
    EXPECT_EQ(RecordingHost::OfThread().callCount,
              static_cast<std::size_t>(GetParam().callsForEach) * 2 * static_cast<std::size_t>(count) +
                  static_cast<std::size_t>(GetParam().otherCalls));
}

INSTANTIATE_TEST_SUITE_P(OfEverything, Many, testing::ValuesIn(kMany),
                         [](const auto& many) { return std::string(many.param.name); });

namespace {

// The colours 1 to 6, which the layers take in turn.
constexpr const char* kColors[] = {"255,0,0", "255,255,0", "0,255,0", "0,255,255", "0,0,255", "255,0,255"};

std::string Layers(int count)
{
    std::string layers = "0\nTABLE\n2\nLAYER\n";
    for (int i = 0; i < count; ++i)
        layers += "0\nLAYER\n100\nM\n2\nLayer" + std::to_string(i) + "\n62\n" + std::to_string(i % 6 + 1) +
                  "\n370\n" + std::to_string(i % 200 + 1) + "\n";
    return "0\nSECTION\n2\nTABLES\n" + layers + "0\nENDTAB\n0\nENDSEC\n";
}

constexpr int kLayers = kMillion / 10;

} // namespace

TEST(ManyLayers, EachLendsItsOwnStyle)
{
    std::string drawing = Layers(kLayers) + "0\nSECTION\n2\nENTITIES\n";
    for (int i : {0, 4, kLayers / 2, kLayers - 1, kLayers})
        drawing += "0\nCIRCLE\n8\nLayer" + std::to_string(i) + "\n";
    const std::string trace = TraceOf(drawing + "0\nENDSEC\n");
    std::string styles;
    for (std::size_t at = trace.find("\"stroke"); at != std::string::npos;
         at = trace.find("\"stroke", at + 1))
        styles += trace.substr(at, trace.find(')', trace.find("\", \"", at)) - at) + "\n";
    const auto width = [](int i) {
        char text[32];
        std::snprintf(text, sizeof(text), "\"stroke-width\", \"%f\"\n", (i % 200 + 1) / 100.0);
        return std::string(text);
    };
    const int middle = kLayers / 2, last = kLayers - 1;
    const std::string dashes = "\"stroke-dasharray\", \"\"\n";
    const auto stroke = [](int i) { return "\"stroke\", \"RGB(" + std::string(kColors[i % 6]) + "\n"; };
    EXPECT_EQ(styles, width(0) + stroke(0) + dashes + width(4) + stroke(4) + dashes + width(middle) +
                          stroke(middle) + dashes + width(last) + stroke(last) + dashes +
                          "\"stroke-width\", \"0.500000\"\n\"stroke\", \"RGB(255,255,255\n" + dashes);
}

TEST(ManyLayers, AMillionEntitiesOnTheLastOne)
{
    const std::string layers = Layers(kLayers);
    const std::string entity = "0\nLINE\n8\nLayer" + std::to_string(kLayers - 1) + "\n11\n1\n";
    const std::string drawing =
        layers + "0\nSECTION\n2\nENTITIES\n" + Repeat(entity, kMillion) + "0\nENDSEC\n";
    Count(drawing.data(), drawing.size());
    EXPECT_EQ(RecordingHost::OfThread().callCount, 4u * kMillion);
}

TEST(ManyLayers, AMillionEntitiesOnAllOfThem)
{
    std::string drawing = Layers(kLayers) + "0\nSECTION\n2\nENTITIES\n";
    for (int i = 0; i < kMillion; ++i)
        drawing += "0\nLINE\n8\nLayer" + std::to_string(i % kLayers) + "\n";
    drawing += "0\nENDSEC\n";
    Count(drawing.data(), drawing.size());
    EXPECT_EQ(RecordingHost::OfThread().callCount, 4u * kMillion);
}

TEST(ManyLayers, AMillionEntitiesOnLayersThatAreMissing)
{
    std::string drawing = Layers(kLayers) + "0\nSECTION\n2\nENTITIES\n";
    for (int i = 0; i < kMillion; ++i)
        drawing += "0\nLINE\n8\nMissing" + std::to_string(i) + "\n6\nMissing" + std::to_string(i) + "\n";
    drawing += "0\nENDSEC\n";
    Count(drawing.data(), drawing.size());
    EXPECT_EQ(RecordingHost::OfThread().callCount, 4u * kMillion);
}

TEST(Work, OfManyOfEverything)
{
    for (const ManyCase& many : kMany)
        RunAtSizes(std::string("many/") + many.name, many.drawing, 2000);
}

// Names are looked up in an index: an entity costs the same however many layers there are.
TEST(Work, OfEntitiesOnManyLayers)
{
    const auto drawing = [](const char* name) {
        return [name](int count) {
            std::string entities;
            for (int i = 0; i < count; ++i)
                entities +=
                    "0\nLINE\n8\n" + (name + std::to_string(i)) + "\n6\n" + name + std::to_string(i) + "\n";
            return Layers(count) + InSection("ENTITIES", entities);
        };
    };
    RunAtSizes("layers/of entities", drawing("Layer"), 2000);
    RunAtSizes("layers/missing", drawing("Missing"), 2000);
}
