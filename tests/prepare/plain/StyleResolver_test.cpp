#include "prepare/plain/StyleResolver.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

class Styles : public testing::Test {
protected:
    Styles()
    {
        Layer layer;
        layer.name = walls = drawing.names.Of("walls");
        layer.colour = 3;
        layer.weight = 50;
        layer.lineType = dashed = drawing.names.Of("dashed");
        drawing.layers.emplace(walls, layer);
        LineType type;
        type.name = dashed;
        type.dashes = {2, -1};
        drawing.lineTypes.emplace(dashed, type);
        entity.layer = walls;
        insert.colour = {false, 0, 5};
        insert.weight = 70;
        insert.layer = drawing.names.Of("insert's");
    }
    Style Resolved(bool isInBlock = true) { return StyleResolver(drawing).Of(entity, insert, isInBlock); }

    Drawing drawing;
    NameId walls = kNoName;
    NameId dashed = kNoName;
    Line entity;
    Style insert;
};

TEST_F(Styles, ByLayerIsTheLayers)
{
    const Style style = Resolved();
    EXPECT_EQ(style.colour, (Colour{false, 0, 3}));
    EXPECT_EQ(style.weight, 50);
    EXPECT_EQ(style.lineType, drawing.FindLineType(dashed));
    EXPECT_EQ(style.layer, walls);
}

TEST_F(Styles, ByBlockIsTheInserts)
{
    entity.colour = kByBlock;
    entity.weight = kWeightByBlock;
    entity.lineType = drawing.names.Of("ByBlock");
    const Style style = Resolved();
    EXPECT_EQ(style.colour, insert.colour);
    EXPECT_EQ(style.weight, 70);
    EXPECT_EQ(style.lineType, nullptr);
}

TEST_F(Styles, OnLayerZeroInABlockTheInsertsLayerCounts)
{
    insert.layer = walls;
    entity.layer = drawing.names.Of("0");
    EXPECT_EQ(Resolved().colour, (Colour{false, 0, 3}));
    EXPECT_EQ(Resolved().layer, walls);
    EXPECT_EQ(Resolved(false).colour, Colour{}) << "outside of blocks layer 0 is a layer like any other";
}

TEST_F(Styles, ATrueColourIsBeforeTheIndex)
{
    entity.colour = 1;
    entity.trueColour = 0x123456;
    EXPECT_EQ(Resolved().colour, (Colour{true, 0x123456, 7}));
}

TEST_F(Styles, ALayersTrueColourIsBeforeItsIndex)
{
    drawing.layers[walls].trueColour = 0x00FF00;
    EXPECT_EQ(Resolved().colour, (Colour{true, 0x00FF00, 7}));
}

TEST_F(Styles, TheColourOfALayerThatIsOffIsItsOwn)
{
    drawing.layers[walls].colour = -3;
    EXPECT_EQ(Resolved().colour, (Colour{false, 0, 3}));
}

TEST_F(Styles, WithoutALayerTheDefaultsCount)
{
    entity.layer = drawing.names.Of("nowhere");
    EXPECT_EQ(Resolved().colour, Colour{});
    EXPECT_EQ(Resolved().weight, 25);
    EXPECT_EQ(Resolved().lineType, nullptr);
}

TEST_F(Styles, TheDefaultWeightIsTheHeaders)
{
    drawing.header["$LWDEFAULT"].values = {{370, "35"}};
    entity.weight = kDefaultWeight;
    EXPECT_EQ(Resolved().weight, 35);
}

TEST_F(Styles, AWeightThatTheFormatLacksIsTheDefault)
{
    entity.weight = 100000;
    EXPECT_EQ(Resolved().weight, 25);
}

TEST_F(Styles, LineTypeScalesMultiply)
{
    drawing.header["$LTSCALE"].values = {{40, "10"}};
    entity.lineTypeScale = 0.5;
    EXPECT_EQ(Resolved().lineTypeScale, 5);
    entity.lineTypeScale = -1;
    EXPECT_EQ(Resolved().lineTypeScale, 10) << "a scale that is none counts as 1";
}

TEST_F(Styles, ContinuousIsSolidOnADashedLayer)
{
    entity.lineType = drawing.names.Of("CONTINUOUS");
    EXPECT_EQ(Resolved().lineType, nullptr);
}

TEST_F(Styles, OnlyALineTypeThatNoTableHasIsMissing)
{
    const auto missing = [&](const char* name) {
        entity.lineType = drawing.names.Of(name);
        return std::string(drawing.names.Text(StyleResolver(drawing).MissingLineType(entity, entity.layer)));
    };
    for (const char* const name : {"", "ByLayer", "BYBLOCK", "byblock", "Continuous", "CONTINUOUS", "DASHED"})
        EXPECT_EQ(missing(name), "") << name;
    EXPECT_EQ(missing("Hidden"), "Hidden");
    drawing.lineTypes.clear();
    EXPECT_EQ(missing("ByLayer"), "dashed");
    EXPECT_EQ(missing(""), "dashed");
    EXPECT_EQ(missing("Continuous"), "");
    drawing.layers.clear();
    EXPECT_EQ(missing(""), "");
}

TEST_F(Styles, PartsAreByTheirEntity)
{
    const Style whole = Resolved();
    const StyleResolver resolver(drawing);
    EXPECT_EQ(resolver.OfPart({kByBlock, kNoTrueColour, kNoName, kNoName}, whole).colour, whole.colour);
    EXPECT_EQ(resolver.OfPart({1, kNoTrueColour, kNoName, kNoName}, whole).colour, (Colour{false, 0, 1}));
}

TEST_F(Styles, PartsOnLayerZeroAreOnTheirEntitysLayer)
{
    const NameId zero = drawing.names.Of("0"), doors = drawing.names.Of("doors");
    const Style whole = Resolved();
    const StyleResolver resolver(drawing);
    const auto onLayer = [&](NameId layer) {
        return resolver.OfPart({kByLayer, kNoTrueColour, kNoName, layer}, whole);
    };
    EXPECT_EQ(onLayer(zero).layer, walls);
    EXPECT_EQ(onLayer(zero).colour, (Colour{false, 0, 3}));
    EXPECT_EQ(onLayer(doors).layer, doors);
    EXPECT_EQ(onLayer(doors).colour, Colour{});
}

TEST_F(Styles, WhatIsByBlockOrOnLayerZeroInherits)
{
    const StyleResolver resolver(drawing);
    EXPECT_FALSE(resolver.InheritsFromInsert(entity));
    entity.colour = kByBlock;
    EXPECT_TRUE(resolver.InheritsFromInsert(entity));
    entity.colour = 1;
    entity.weight = kWeightByBlock;
    EXPECT_TRUE(resolver.InheritsFromInsert(entity));
    entity.weight = 25;
    entity.layer = kNoName;
    EXPECT_TRUE(resolver.InheritsFromInsert(entity));
}

} // namespace
} // namespace prepare
