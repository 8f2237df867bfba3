// Much of everything: twice the file makes twice the calls, and takes about twice the work.
#include "input/CDxfMemory.h"
#include "support/CountedWork.h"
#include "support/FailingMemory.h"
#include "support/Import.h"
#include "support/TestScale.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

// A drawing of so many of something, and the calls that it makes.
struct ManyCase {
    const char* name;
    const char* section; // nullptr where the parts are sections themselves
    std::string before;
    std::string part;
    std::string after;
    int callsForEach;
    int otherCalls;

    std::string Drawing(int count) const
    {
        const std::string body = before + Repeat(part, count) + after;
        return section != nullptr ? SectionAlone(section, body) : body;
    }
};

const std::string kLine = Dxf({{0, "LINE"}});
const std::string kEndOfTable = Dxf({{0, "ENDTAB"}});
const std::string kGroup = Dxf({{102, "{G"}, {330, "1F"}, {102, "}"}});

const ManyCase kMany[] = {
    {"KnownSections", nullptr, "", Dxf({{0, "SECTION"}, {2, "HEADER"}, {0, "ENDSEC"}}), "", 0, 0},
    {"UnknownSections", nullptr, "", Dxf({{0, "SECTION"}, {2, "X"}, {0, "ENDSEC"}}), "", 1, 0},
    {"EntitySections", nullptr, "", Section("ENTITIES", kLine), "", 4, 0},
    {"Tables", "TABLES", "", Dxf({{0, "TABLE"}, {2, "LAYER"}, {0, "ENDTAB"}}), "", 0, 0},
    {"TablesOfEntries", "TABLES", "",
     Dxf({{0, "TABLE"}, {2, "LAYER"}, {0, "LAYER"}, {100, "M"}, {2, "A"}, {0, "ENDTAB"}}), "", 0, 0},
    {"SkippedTables", "TABLES", "", Dxf({{0, "TABLE"}, {2, "X"}, {0, "X"}, {2, "Y"}, {0, "ENDTAB"}}), "", 1,
     0},
    {"TableEntries", "TABLES", Dxf({{0, "TABLE"}, {2, "LAYER"}}), Dxf({{0, "LAYER"}, {100, "M"}, {2, "A"}}),
     kEndOfTable, 0, 0},
    {"GroupsOfATable", "TABLES", Dxf({{0, "TABLE"}}), kGroup, kEndOfTable, 0, 0},
    {"GroupsOfAnEntity", "ENTITIES", kLine, kGroup, "", 0, 4},
    {"LinesOfAGroup", "ENTITIES", kLine + Dxf({{102, "{G"}}), Dxf({{330, "1F"}}), Dxf({{102, "}"}}), 0, 4},
    {"MarkersOfAnEntity", "ENTITIES", kLine, Dxf({{100, "AcDbLine"}}), "", 0, 4},
    {"MarkersOfADimension", "ENTITIES", Dxf({{0, "DIMENSION"}}), Dxf({{100, "AcDbEntity"}}), "", 0, 0},
    {"PartsOfADimension", "ENTITIES", Dxf({{0, "DIMENSION"}, {100, "AcDbDimension"}}),
     Dxf({{100, "AcDbDimension"}}), "", 1, 0},
    {"StyleListsOfADimension", "ENTITIES", Dxf({{0, "DIMENSION"}, {100, "AcDbRotatedDimension"}}),
     Dxf({{1000, "DSTYLE"}, {1002, "{"}, {1070, 1}, {1002, "}"}}), "", 0, 0},
    {"UnknownCodes", "ENTITIES", kLine, Dxf({{999, "comment"}}), "", 1, 4},
    {"UnknownEntities", "ENTITIES", "", Dxf({{0, "SOLID"}, {10, 1}}), "", 1, 0},
    {"SkippedEntities", "ENTITIES", "", Dxf({{0, "POINT"}, {10, 1}}), "", 0, 0},
    {"Texts", "ENTITIES", "", Dxf({{0, "TEXT"}, {1, "text"}}), "", 3, 0},
    {"Inserts", "ENTITIES", "", Dxf({{0, "INSERT"}, {2, "B"}}), "", 1, 0},
    {"Vertices", "ENTITIES", Dxf({{0, "LWPOLYLINE"}}), Dxf({{10, 1}, {20, 2}}), "", 0, 4},
    {"Blocks", "BLOCKS", "", Dxf({{0, "BLOCK"}, {2, "B"}, {0, "ENDBLK"}}), "", 4, 0},
    {"NamesOfNoEntity", "BLOCKS", Dxf({{0, "BLOCK"}, {2, "B"}}) + Lines({"0"}), Lines({"X"}),
     Lines({"ENDBLK"}), 0, 4},
    {"EmptyLines", nullptr, "", Lines({""}), "", 0, 0},
    {"BadCodes", "ENTITIES", "", Dxf({{0, "LINE"}, {"x", 1}}), "", 7, 0},
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
    const std::string half = GetParam().Drawing(count);
    const std::string full = GetParam().Drawing(2 * count);
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

std::string Numbered(const char* name, int number)
{
    return name + std::to_string(number);
}

std::string Layers(int count)
{
    std::string layers = Dxf({{0, "TABLE"}, {2, "LAYER"}});
    for (int i = 0; i < count; ++i)
        layers +=
            Dxf({{0, "LAYER"}, {100, "M"}, {2, Numbered("Layer", i)}, {62, i % 6 + 1}, {370, i % 200 + 1}});
    return Section("TABLES", layers + Dxf({{0, "ENDTAB"}}));
}

constexpr int kLayers = kMillion / 10;

} // namespace

TEST(ManyLayers, EachLendsItsOwnStyle)
{
    std::string circles;
    for (int i : {0, 4, kLayers / 2, kLayers - 1, kLayers})
        circles += Dxf({{0, "CIRCLE"}, {8, Numbered("Layer", i)}});
    const std::string trace = TraceOf(Layers(kLayers) + Section("ENTITIES", circles));
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
    const std::string lines = Repeat({{0, "LINE"}, {8, Numbered("Layer", kLayers - 1)}, {11, 1}}, kMillion);
    const std::string drawing = Layers(kLayers) + Section("ENTITIES", lines);
    Count(drawing.data(), drawing.size());
    EXPECT_EQ(RecordingHost::OfThread().callCount, 4u * kMillion);
}

TEST(ManyLayers, AMillionEntitiesOnAllOfThem)
{
    std::string lines;
    for (int i = 0; i < kMillion; ++i)
        lines += Dxf({{0, "LINE"}, {8, Numbered("Layer", i % kLayers)}});
    const std::string drawing = Layers(kLayers) + Section("ENTITIES", lines);
    Count(drawing.data(), drawing.size());
    EXPECT_EQ(RecordingHost::OfThread().callCount, 4u * kMillion);
}

TEST(ManyLayers, AMillionEntitiesOnLayersThatAreMissing)
{
    std::string lines;
    for (int i = 0; i < kMillion; ++i)
        lines += Dxf({{0, "LINE"}, {8, Numbered("Missing", i)}, {6, Numbered("Missing", i)}});
    const std::string drawing = Layers(kLayers) + Section("ENTITIES", lines);
    Count(drawing.data(), drawing.size());
    EXPECT_EQ(RecordingHost::OfThread().callCount, 4u * kMillion);
}

TEST(Work, OfManyOfEverything)
{
    for (const ManyCase& many : kMany)
        RunAtSizes(
            std::string("many/") + many.name, [&](int count) { return many.Drawing(count); }, 2000);
}

// Names are looked up in an index: an entity costs the same however many layers there are.
TEST(Work, OfEntitiesOnManyLayers)
{
    const auto drawing = [](const char* name) {
        return [name](int count) {
            std::string lines;
            for (int i = 0; i < count; ++i)
                lines += Dxf({{0, "LINE"}, {8, Numbered(name, i)}, {6, Numbered(name, i)}});
            return Layers(count) + SectionAlone("ENTITIES", lines);
        };
    };
    RunAtSizes("layers/of entities", drawing("Layer"), 2000);
    RunAtSizes("layers/missing", drawing("Missing"), 2000);
}
