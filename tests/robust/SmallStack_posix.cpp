// Whatever a file holds however often, nothing is done for one thing from within another: a thread with a
// small stack is enough for all of it. (A host may call from any thread it likes.)
#include "entry/dxfFileOpen.h"
#include "support/RecordingHost.h"
#include "support/Scale.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <pthread.h>

namespace {

// The sanitizers' frames and their own memory for a thread are larger.
constexpr std::size_t kStack = kIsSanitized ? 512 * 1024 : 64 * 1024;

struct IMPORT {
    std::wstring path;
    bool returned = false;
    std::size_t calls = 0;
};

void* Run(void* argument)
{
    IMPORT& import = *static_cast<IMPORT*>(argument);
    RecordingHost& host = RecordingHost::OfThread();
    host.Reset();
    host.countOnly = true;
    import.returned = dxfFileOpen(import.path.c_str(), RecordingHost::Context());
    import.calls = host.callCount;
    return nullptr;
}

std::size_t CallsOnSmallStack(const std::string& drawing)
{
    const TempFile file(drawing);
    IMPORT import{.path = file.WidePath()};
    pthread_attr_t attributes;
    EXPECT_EQ(pthread_attr_init(&attributes), 0);
    EXPECT_EQ(pthread_attr_setstacksize(&attributes, kStack), 0);
    pthread_t thread;
    if (pthread_create(&thread, &attributes, Run, &import) != 0) {
        ADD_FAILURE() << "no thread of that stack";
        return 0;
    }
    EXPECT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attributes);
    EXPECT_TRUE(import.returned);
    return import.calls;
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
              100u + 2 + 2 + 4); // the line behind the bad code is taken for a type name
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
