// Blocks as symbols, INSERTs as uses of them.
#include "entities/DXF_BLOCKS_BLOCK.h"
#include "entities/DXF_GRAPHIC_INSERT.h"
#include "input/CDxfMemory.h"
#include "support/Import.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

class Inserts : public ::testing::Test {
protected:
    void SetUp() override { host.Reset(); }

    // What an INSERT sets on its use: " rotate=-30.000000 scale-x=2.000000", and every other host call in
    // full.
    std::string Attributes(const DXF_GRAPHIC_INSERT& insert)
    {
        host.Reset();
        converter.OnInsert(insert);
        std::string attributes;
        for (std::string call : host.calls) {
            const std::string start = "qlmSetAttributeByNode(ctx, n1, \"";
            if (call.rfind("qlmCreateUse(", 0) == 0)
                continue;
            if (call.rfind(start, 0) == 0) {
                const std::size_t value = call.find("\", \"", start.size());
                call = call.substr(start.size(), value - start.size()) + '=' +
                       call.substr(value + 4, call.size() - value - 6);
            }
            attributes.append(" ").append(call);
        }
        return attributes;
    }
    std::string Rotated(double rotation)
    {
        DXF_GRAPHIC_INSERT insert;
        insert.m_dRotation = rotation;
        return Attributes(insert);
    }
    std::string Scaled(double x, double y, double z = 1.0)
    {
        DXF_GRAPHIC_INSERT insert;
        insert.m_dScaleX = x;
        insert.m_dScaleY = y;
        insert.m_dScaleZ = z;
        return Attributes(insert);
    }
    std::string TraceAt(double x, double y)
    {
        DXF_GRAPHIC_INSERT insert;
        insert.m_dInsertX = x;
        insert.m_dInsertY = y;
        host.Reset();
        converter.OnInsert(insert);
        return host.Trace();
    }

    RecordingHost& host = RecordingHost::OfThread();
    CDxfReadToQuillmar converter{RecordingHost::Context()};
};

} // namespace

TEST_F(Inserts, BlockBecomesASymbolThatHoldsItsEntities)
{
    EXPECT_EQ(Without("qlmSetAttributeByNode",
                      TraceOf(Section("BLOCKS", Dxf({{0, "BLOCK"},
                                                     {2, " Door "},
                                                     {10, 5},
                                                     {20, 6},
                                                     {3, "other"},
                                                     {0, "LINE"},
                                                     {11, 1},
                                                     {0, "TEXT"},
                                                     {1, "A"},
                                                     {0, "ENDBLK"}})) +
                              EntitiesSection({{0, "INSERT"}, {2, "Door"}, {10, 3}, {20, 4}}))),
              "qlmSetCurrentSvgNode(ctx, 0)\n"
              "qlmCreateSymbol(ctx, \"Door\") = n1\n"
              "qlmSetCurrentSvgNode(ctx, n1)\n"
              "qlmCreateLine(ctx, \"\", 0, -0, 1, -0, 0, 0) = n2\n"
              "qlmCreateText(ctx, \"\", 0, 5, 0, 0, \"A\", 0, 0) = n3\n"
              "qlmSetCurrentSvgNode(ctx, 0)\n"
              "qlmCreateUse(ctx, \"\", 0, 0, \"Door\", \"hmi\", 3, -4) = n4\n");
}

TEST_F(Inserts, DrawingOfBlocksAloneCreatesOnlySymbols)
{
    EXPECT_EQ(
        TraceOf(Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "A"}, {0, "ENDBLK"}, {0, "BLOCK"}, {0, "ENDBLK"}}))),
        "qlmSetCurrentSvgNode(ctx, 0)\n"
        "qlmCreateSymbol(ctx, \"A\") = n1\n"
        "qlmSetCurrentSvgNode(ctx, n1)\n"
        "qlmSetCurrentSvgNode(ctx, 0)\n"
        "qlmSetCurrentSvgNode(ctx, 0)\n"
        "qlmCreateSymbol(ctx, \"\") = n2\n"
        "qlmSetCurrentSvgNode(ctx, n2)\n"
        "qlmSetCurrentSvgNode(ctx, 0)\n");
}

TEST_F(Inserts, BlockBeginLeavesWhateverNodeWasCurrentAndTheEndReturnsToTheDefaultPlace)
{
    host.currentNode = RecordingHost::Context();
    DXF_BLOCKS_BLOCK block;
    block.m_strName = converter.store.Keep("Door");
    converter.OnBlockBegin(block);
    EXPECT_EQ(host.Trace(), "qlmSetCurrentSvgNode(ctx, 0)\n"
                            "qlmCreateSymbol(ctx, \"Door\") = n1\n"
                            "qlmSetCurrentSvgNode(ctx, n1)\n");
    converter.OnBlockEnd(block);
    EXPECT_EQ(host.calls.size(), 4u);
    EXPECT_EQ(host.calls.back(), "qlmSetCurrentSvgNode(ctx, 0)");
}

TEST_F(Inserts, EntitiesOfARefusedSymbolAreCreatedAtTheDefaultPlace)
{
    host.refuseSymbols = true;
    const std::string blocks =
        Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "Door"}, {0, "INSERT"}, {2, "Knob"}, {0, "ENDBLK"}})) +
        Dxf({{0, "EOF"}});
    CDxfMemory drawing(blocks);
    converter.ReadDxfSource(drawing);
    EXPECT_EQ(host.Trace(), "qlmSetCurrentSvgNode(ctx, 0)\n"
                            "qlmCreateSymbol(ctx, \"Door\") = 0\n"
                            "qlmCreateUse(ctx, \"\", 0, 0, \"Knob\", \"hmi\", 0, -0) = n1\n"
                            "qlmSetCurrentSvgNode(ctx, 0)\n");
}

TEST_F(Inserts, UseCarriesNameKindAndPlaceAndNothingElse)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "INSERT"},
                                       {2, " Door "},
                                       {10, 1.5},
                                       {20, 2.5},
                                       {30, 9},
                                       {43, 5},
                                       {44, 12},
                                       {45, 13},
                                       {70, 3},
                                       {71, 4},
                                       {66, 1},
                                       {60, 1},
                                       {62, 1},
                                       {370, 50},
                                       {8, "x"},
                                       {6, "DASHED"}})),
              "qlmCreateUse(ctx, \"\", 0, 0, \"Door\", \"hmi\", 1.5, -2.5) = n1\n");
}

TEST_F(Inserts, UseOfABlockThatIsNotDefinedIsCreatedWithThatName)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "INSERT"}, {2, "Nowhere"}, {0, "INSERT"}})),
              "qlmCreateUse(ctx, \"\", 0, 0, \"Nowhere\", \"hmi\", 0, -0) = n1\n"
              "qlmCreateUse(ctx, \"\", 0, 0, \"\", \"hmi\", 0, -0) = n2\n");
}

TEST_F(Inserts, NamesAreNotCompared)
{
    EXPECT_EQ(TraceOf(Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "DOOR"}, {0, "ENDBLK"}})) +
                      EntitiesSection({{0, "INSERT"}, {2, "door"}})),
              "qlmSetCurrentSvgNode(ctx, 0)\n"
              "qlmCreateSymbol(ctx, \"DOOR\") = n1\n"
              "qlmSetCurrentSvgNode(ctx, n1)\n"
              "qlmSetCurrentSvgNode(ctx, 0)\n"
              "qlmCreateUse(ctx, \"\", 0, 0, \"door\", \"hmi\", 0, -0) = n2\n");
}

TEST_F(Inserts, PlaceIsTransformedInDoubleAndNarrowed)
{
    EXPECT_EQ(TraceAt(16777217.0, 0.1),
              "qlmCreateUse(ctx, \"\", 0, 0, \"\", \"hmi\", 16777216, -0.1) = n1\n");
    EXPECT_EQ(TraceAt(-0.0, -0.0), "qlmCreateUse(ctx, \"\", 0, 0, \"\", \"hmi\", -0, 0) = n1\n");
    EXPECT_EQ(TraceAt(1e39, 1e39), "qlmCreateUse(ctx, \"\", 0, 0, \"\", \"hmi\", inf, -inf) = n1\n");
    converter.scale = 16777217.0; // 3 times that is 50331651, whose nearest float is 50331652
    EXPECT_EQ(TraceAt(3.0, 3.0), "qlmCreateUse(ctx, \"\", 0, 0, \"\", \"hmi\", 50331652, -50331652) = n1\n");
    converter.scale = 2.0;
    converter.yAxisMode = 1;
    EXPECT_EQ(TraceAt(3.0, 4.0), "qlmCreateUse(ctx, \"\", 0, 0, \"\", \"hmi\", 6, 8) = n1\n");
}

TEST_F(Inserts, RotationIsNegatedWhereYIsFlipped)
{
    EXPECT_EQ(Rotated(30.0), " rotate=-30.000000");
    EXPECT_EQ(Rotated(-30.0), " rotate=30.000000");
    EXPECT_EQ(Rotated(720.5), " rotate=-720.500000");
    for (const int mode : {0, 1, 3, -2}) {
        converter.yAxisMode = mode;
        EXPECT_EQ(Rotated(30.0), " rotate=30.000000") << mode;
    }
}

TEST_F(Inserts, RotationOfZeroOfEitherSignIsNotSet)
{
    EXPECT_EQ(Rotated(0.0), "");
    EXPECT_EQ(Rotated(-0.0), "");
}

TEST_F(Inserts, RotationIsNarrowedToAFloat)
{
    EXPECT_EQ(Rotated(0.1), " rotate=-0.100000");
    EXPECT_EQ(Rotated(123456.789), " rotate=-123456.789062"); // the float is 123456.7890625, a tie
    EXPECT_EQ(Rotated(16777217.0), " rotate=-16777216.000000");
    EXPECT_EQ(Rotated(1e39), " rotate=-inf");
    converter.yAxisMode = 0;
    EXPECT_EQ(Rotated(16777217.0), " rotate=16777216.000000");
}

TEST_F(Inserts, RotationIsComparedWithZeroBeforeItIsNarrowed)
{
    // Not 0 as a double, 0 as a float: set, and negated after it has become zero.
    EXPECT_EQ(Rotated(1e-60), " rotate=-0.000000");
    EXPECT_EQ(Rotated(-1e-60), " rotate=0.000000");
    converter.yAxisMode = 0;
    EXPECT_EQ(Rotated(1e-60), " rotate=0.000000");
    EXPECT_EQ(Rotated(-1e-60), " rotate=-0.000000");
}

TEST_F(Inserts, RotationThatIsNoNumberIsSet)
{
    EXPECT_EQ(Rotated(std::numeric_limits<double>::quiet_NaN()), " rotate=nan");
    EXPECT_EQ(Rotated(-std::numeric_limits<double>::quiet_NaN()), " rotate=nan");
}

TEST_F(Inserts, ScalesOfExactlyOneAreNotSet)
{
    EXPECT_EQ(Scaled(1.0, 1.0), "");
    EXPECT_EQ(Scaled(1.0, 1.0, 7.0), ""); // the scale in z is not used
    EXPECT_EQ(Scaled(-1.0, 1.0), " scale-x=-1.000000");
    EXPECT_EQ(Scaled(1.0, -1.0), " scale-y=-1.000000");
    EXPECT_EQ(Scaled(1.0000000001, 0.9999999999), " scale-x=1.000000 scale-y=1.000000");
}

TEST_F(Inserts, ScalesKeepDoublePrecision)
{
    EXPECT_EQ(Scaled(123456.789, 16777217.0), " scale-x=123456.789000 scale-y=16777217.000000");
    EXPECT_EQ(Scaled(0.0, -0.0), " scale-x=0.000000 scale-y=-0.000000");
    EXPECT_EQ(Scaled(std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()),
              " scale-x=inf scale-y=nan");
}

TEST_F(Inserts, ScaleAndFlipOfTheDrawingChangeNeitherRotationNorScales)
{
    DXF_GRAPHIC_INSERT insert;
    insert.m_dRotation = 30.0;
    insert.m_dScaleX = 2.0;
    insert.m_dScaleY = 3.0;
    EXPECT_EQ(Attributes(insert), " rotate=-30.000000 scale-x=2.000000 scale-y=3.000000");
    converter.scale = 10.0;
    EXPECT_EQ(Attributes(insert), " rotate=-30.000000 scale-x=2.000000 scale-y=3.000000");
    converter.yAxisMode = 0;
    EXPECT_EQ(Attributes(insert), " rotate=30.000000 scale-x=2.000000 scale-y=3.000000");
}

TEST_F(Inserts, UseThatTheHostRefusesStillGetsItsAttributes)
{
    host.refuseAll = true;
    DXF_GRAPHIC_INSERT insert;
    insert.m_dRotation = 30.0;
    insert.m_dScaleY = 2.0;
    converter.OnInsert(insert);
    EXPECT_EQ(host.Trace(), "qlmCreateUse(ctx, \"\", 0, 0, \"\", \"hmi\", 0, -0) = 0\n"
                            "qlmSetAttributeByNode(ctx, 0, \"rotate\", \"-30.000000\")\n"
                            "qlmSetAttributeByNode(ctx, 0, \"scale-y\", \"2.000000\")\n");
}

TEST_F(Inserts, NothingIsCreatedWhileDrawingIsOffOrWithoutAContextNode)
{
    const auto drawAll = [&] {
        converter.OnBlockBegin(DXF_BLOCKS_BLOCK());
        converter.OnInsert(DXF_GRAPHIC_INSERT());
        converter.OnBlockEnd(DXF_BLOCKS_BLOCK());
        return host.Trace();
    };
    converter.drawEnabled = false;
    EXPECT_EQ(drawAll(), "");
    converter.drawEnabled = true;
    converter.parentNode = nullptr;
    EXPECT_EQ(drawAll(), "");
}
