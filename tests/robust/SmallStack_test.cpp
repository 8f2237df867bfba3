// Whatever a file holds however often, nothing is done for one thing from within another: a thread with a
// small stack is enough for all of it. (A host may call from any thread it likes.)
#include "entry/dxfFileOpen.h"
#include "support/RecordingHost.h"
#include "support/Scale.h"
#include "support/SmallStack.h"
#include "support/TempFile.h"

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

std::string Repeat(std::string_view text, int count)
{
    std::string repeated;
    for (int i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

constexpr int kMany = kMillion / 10;

} // namespace

TEST(SmallStack, HoldsTablesInARow)
{
    EXPECT_EQ(CallsOnSmallStack("0\nSECTION\n2\nTABLES\n" +
                                Repeat("0\nTABLE\n2\nLTYPE\n0\nLTYPE\n100\nM\n2\nA\n0\nENDTAB\n", kMany) +
                                "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nLINE\n0\nENDSEC\n"),
              4u);
}

TEST(SmallStack, HoldsTableEntriesInARow)
{
    EXPECT_EQ(CallsOnSmallStack("0\nSECTION\n2\nTABLES\n0\nTABLE\n" +
                                Repeat("0\nLAYER\n100\nM\n2\nA\n102\n{G\n102\n}\n", kMany) +
                                "0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nLINE\n8\nA\n0\nENDSEC\n"),
              4u);
}

TEST(SmallStack, HoldsMarkersOfADimensionInARow)
{
    for (const char* marker : {"100\nAcDbEntity\n", "100\nAcDbAlignedDimension\n",
                               "100\nAcDbOrdinateDimension\n", "100\nAcDb3PointAngularDimension\n"})
        EXPECT_EQ(CallsOnSmallStack("0\nSECTION\n2\nENTITIES\n0\nDIMENSION\n" + Repeat(marker, kMany) +
                                    "0\nLINE\n0\nENDSEC\n"),
                  4u)
            << marker;
}

// Each of them is drawn: a group, a line and a text.
TEST(SmallStack, HoldsDrawnPartsOfADimensionInARow)
{
    EXPECT_EQ(CallsOnSmallStack("0\nSECTION\n2\nENTITIES\n0\nDIMENSION\n100\nAcDbDimension\n" +
                                Repeat("100\nAcDbRadialDimension\n15\n1\n", kMany) + "0\nENDSEC\n"),
              static_cast<std::size_t>(kMany) * (4 + 4 + 5));
}

TEST(SmallStack, HoldsTheDeepestNestingOfADimensionText)
{
    const std::string nested = Repeat("A{", 500) + "B" + Repeat("}", 20);
    EXPECT_GT(CallsOnSmallStack("0\nSECTION\n2\nENTITIES\n0\nDIMENSION\n100\nAcDbDimension\n1\n" + nested +
                                "\n100\nAcDbRadialDimension\n15\n1\n0\nENDSEC\n"),
              10u);
}

TEST(SmallStack, HoldsMistakesWithTheLongestTexts)
{
    const std::string longest(1023, 'x');
    EXPECT_EQ(CallsOnSmallStack("0\nSECTION\n2\nENTITIES\n0\nLINE\n100\n" + longest + "\n" +
                                Repeat("999\n" + longest + "\n", 100) + longest + "\n0\nENDSEC\n"),
              100u + 2 + 2 + 4); // the line after the bad code is taken for a type name
}

TEST(SmallStack, HoldsSectionsBlocksAndGroupsInARow)
{
    EXPECT_EQ(CallsOnSmallStack(Repeat("0\nSECTION\n2\nX\n", kMany)), static_cast<std::size_t>(kMany));
    EXPECT_EQ(
        CallsOnSmallStack("0\nSECTION\n2\nBLOCKS\n" + Repeat("0\nBLOCK\n0\nENDBLK\n", kMany) + "0\nENDSEC\n"),
        static_cast<std::size_t>(kMany) * 4);
    EXPECT_EQ(CallsOnSmallStack("0\nSECTION\n2\nENTITIES\n0\nLINE\n" + Repeat("102\n{\n102\n}\n", kMany) +
                                "0\nENDSEC\n"),
              4u);
}
