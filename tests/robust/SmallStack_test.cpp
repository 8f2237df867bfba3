// Whatever a file holds however often, nothing is done for one thing from within another: a thread with a
// small stack is enough for all of it. (A host may call from any thread it likes.)
#include "entry/dxfFileOpen.h"
#include "support/Dxf.h"
#include "support/RecordingHost.h"
#include "support/SmallStack.h"
#include "support/TempFile.h"
#include "support/TestScale.h"

#include <gtest/gtest.h>

namespace {

std::size_t CallsOnSmallStack(const std::string& drawing)
{
    const TempFile file(drawing);
    const std::wstring path = file.WidePath();
    bool returned = false;
    std::size_t calls = 0;
    EXPECT_TRUE(RunOnSmallStack([&] {
        RecordingHost& host = RecordingHost::OfThread();
        host.Reset();
        host.countOnly = true;
        returned = dxfFileOpen(path.c_str(), RecordingHost::Context());
        calls = host.callCount;
    }));
    EXPECT_TRUE(returned);
    return calls;
}

constexpr int kMany = kMillion / 10;

} // namespace

TEST(SmallStack, HoldsTablesInARow)
{
    const std::string tables =
        Repeat({{0, "TABLE"}, {2, "LTYPE"}, {0, "LTYPE"}, {100, "M"}, {2, "A"}, {0, "ENDTAB"}}, kMany);
    EXPECT_EQ(CallsOnSmallStack(Section("TABLES", tables) + Section("ENTITIES", Dxf({{0, "LINE"}}))), 4u);
}

TEST(SmallStack, HoldsTableEntriesInARow)
{
    const std::string entries = Repeat({{0, "LAYER"}, {100, "M"}, {2, "A"}, {102, "{G"}, {102, "}"}}, kMany);
    EXPECT_EQ(CallsOnSmallStack(Section("TABLES", Dxf({{0, "TABLE"}}) + entries + Dxf({{0, "ENDTAB"}})) +
                                Section("ENTITIES", Dxf({{0, "LINE"}, {8, "A"}}))),
              4u);
}

TEST(SmallStack, HoldsMarkersOfADimensionInARow)
{
    for (const char* marker :
         {"AcDbEntity", "AcDbAlignedDimension", "AcDbOrdinateDimension", "AcDb3PointAngularDimension"})
        EXPECT_EQ(
            CallsOnSmallStack(Section("ENTITIES", Dxf({{0, "DIMENSION"}}) + Repeat({{100, marker}}, kMany) +
                                                      Dxf({{0, "LINE"}}))),
            4u)
            << marker;
}

// Each of them is drawn: a group, a line and a text.
TEST(SmallStack, HoldsDrawnPartsOfADimensionInARow)
{
    EXPECT_EQ(
        CallsOnSmallStack(Section("ENTITIES", Dxf({{0, "DIMENSION"}, {100, "AcDbDimension"}}) +
                                                  Repeat({{100, "AcDbRadialDimension"}, {15, 1}}, kMany))),
        static_cast<std::size_t>(kMany) * (4 + 4 + 5));
}

TEST(SmallStack, HoldsTheDeepestNestingOfADimensionText)
{
    const std::string nested = Repeat("A{", 500) + "B" + Repeat("}", 20);
    EXPECT_GT(CallsOnSmallStack(Section("ENTITIES", Dxf({{0, "DIMENSION"},
                                                         {100, "AcDbDimension"},
                                                         {1, nested},
                                                         {100, "AcDbRadialDimension"},
                                                         {15, 1}}))),
              10u);
}

TEST(SmallStack, HoldsMistakesWithTheLongestTexts)
{
    const std::string longest(1023, 'x');
    EXPECT_EQ(CallsOnSmallStack(Section("ENTITIES", Dxf({{0, "LINE"}, {100, longest}}) +
                                                        Repeat({{999, longest}}, 100) + Lines({longest}))),
              100u + 2 + 2 + 4); // the line after the bad code is taken for a type name
}

TEST(SmallStack, HoldsSectionsBlocksAndGroupsInARow)
{
    EXPECT_EQ(CallsOnSmallStack(Repeat({{0, "SECTION"}, {2, "X"}}, kMany)), static_cast<std::size_t>(kMany));
    EXPECT_EQ(CallsOnSmallStack(Section("BLOCKS", Repeat({{0, "BLOCK"}, {0, "ENDBLK"}}, kMany))),
              static_cast<std::size_t>(kMany) * 4);
    EXPECT_EQ(
        CallsOnSmallStack(Section("ENTITIES", Dxf({{0, "LINE"}}) + Repeat({{102, "{"}, {102, "}"}}, kMany))),
        4u);
}
