#include "prepare/plain/LayerChoice.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

class LayerChoices : public testing::Test {
protected:
    NameId AddLayer(const char* name, std::int32_t colour, std::int32_t flags, std::int32_t isPlotted = 1)
    {
        Layer layer;
        layer.name = drawing.names.Of(name);
        layer.colour = colour;
        layer.flags = flags;
        layer.isPlotted = isPlotted;
        drawing.layers.emplace(layer.name, layer);
        return layer.name;
    }
    bool Shows(NameId layer) { return LayerChoice(drawing, options).Shows(layer); }

    Drawing drawing;
    Options options;
};

TEST_F(LayerChoices, LayersThatAreOffOrFrozenAreHidden)
{
    EXPECT_TRUE(Shows(AddLayer("on", 7, 0)));
    EXPECT_FALSE(Shows(AddLayer("off", -7, 0)));
    EXPECT_FALSE(Shows(AddLayer("frozen", 7, 1)));
    EXPECT_TRUE(Shows(AddLayer("locked", 7, 4)));
}

TEST_F(LayerChoices, EachHiddenLayerHasItsReason)
{
    const NameId on = AddLayer("on", 7, 0), off = AddLayer("off", -7, 0), draft = AddLayer("draft", 7, 0, 0);
    const NameId points = drawing.names.Of("Defpoints");
    const auto why = [&](NameId layer) { return LayerChoice(drawing, options).WhyHidden(layer); };
    EXPECT_EQ(why(on), std::nullopt);
    EXPECT_EQ(why(off), HiddenLayer::OffOrFrozen);
    EXPECT_EQ(why(points), HiddenLayer::NotPlotted);
    EXPECT_EQ(why(draft), std::nullopt);
    options.isForPaper = true;
    EXPECT_EQ(why(draft), HiddenLayer::NotPlotted);
    options.withoutLayers = {"o*"};
    EXPECT_EQ(why(off), HiddenLayer::NotChosen);
    options = {};
    options.onlyLayers = {"off"};
    EXPECT_EQ(why(off), std::nullopt);
    EXPECT_EQ(why(on), HiddenLayer::NotChosen);
    const std::set<NameId> frozen = {on};
    options = {};
    EXPECT_EQ(LayerChoice(drawing, options, &frozen).WhyHidden(on), HiddenLayer::OffOrFrozen);
}

TEST_F(LayerChoices, AFrozenLayerThatIsAskedForShowsItsInserts)
{
    const NameId frozen = AddLayer("frozen", 7, 1), other = AddLayer("other", 7, 1);
    options.onlyLayers = {"fro*"};
    const LayerChoice layers(drawing, options);
    EXPECT_FALSE(layers.IsFrozen(frozen));
    EXPECT_TRUE(layers.IsFrozen(other));
}

TEST_F(LayerChoices, ReasonsAreRemembered)
{
    const NameId off = AddLayer("off", -7, 0), on = AddLayer("on", 7, 0);
    LayerChoice layers(drawing, options);
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(layers.WhyHidden(off), HiddenLayer::OffOrFrozen);
        EXPECT_EQ(layers.WhyHidden(on), std::nullopt);
    }
    drawing.layers[off].colour = 7;
    EXPECT_EQ(layers.WhyHidden(off), HiddenLayer::OffOrFrozen);
}

TEST_F(LayerChoices, ALayerThatNoTableHasIsShown)
{
    EXPECT_TRUE(Shows(drawing.names.Of("made up")));
    EXPECT_TRUE(Shows(kNoName));
}

TEST_F(LayerChoices, DefpointsIsHiddenInAnyCase)
{
    EXPECT_FALSE(Shows(AddLayer("Defpoints", 7, 0)));
}

TEST_F(LayerChoices, WhatIsNotPlottedIsHiddenOnPaperAlone)
{
    const NameId frame = AddLayer("frame", 7, 0, 0);
    EXPECT_TRUE(Shows(frame));
    options.isForPaper = true;
    EXPECT_FALSE(Shows(frame));
}

TEST_F(LayerChoices, AllLayersAreShownWhenThatIsAskedFor)
{
    options.showsAllLayers = true;
    EXPECT_TRUE(Shows(AddLayer("off", -7, 1, 0)));
    EXPECT_TRUE(Shows(AddLayer("Defpoints", 7, 0)));
}

TEST_F(LayerChoices, ALayerThatIsFrozenBesidesShowsNoInserts)
{
    const NameId on = AddLayer("on", 7, 0), other = AddLayer("other", 7, 0);
    const std::set<NameId> frozen = {on};
    EXPECT_TRUE(LayerChoice(drawing, options, &frozen).IsFrozen(on));
    EXPECT_FALSE(LayerChoice(drawing, options, &frozen).IsFrozen(other));
    EXPECT_FALSE(LayerChoice(drawing, options).IsFrozen(on));
}

TEST_F(LayerChoices, LayersAskedForByNameAreShownWhateverTheirStateAndNoOthers)
{
    options.onlyLayers = {"wall*"};
    EXPECT_TRUE(Shows(AddLayer("WALLS-1", -7, 0)));
    EXPECT_FALSE(Shows(AddLayer("doors", 7, 0)));
}

TEST_F(LayerChoices, LayersNamedAsUnwantedAreHiddenThoughAskedFor)
{
    options.onlyLayers = {"wall*"};
    options.withoutLayers = {"*-2"};
    EXPECT_TRUE(Shows(AddLayer("wall-1", 7, 0)));
    EXPECT_FALSE(Shows(AddLayer("wall-2", 7, 0)));
}

TEST_F(LayerChoices, LayerZeroIsFoundByItsName)
{
    options.withoutLayers = {"0"};
    EXPECT_FALSE(Shows(kNoName));
}

TEST_F(LayerChoices, AQuestionMarkIsItself)
{
    options.onlyLayers = {"wall?"};
    EXPECT_TRUE(Shows(AddLayer("wall?", 7, 0)));
    EXPECT_FALSE(Shows(AddLayer("walls", 7, 0)));
}

} // namespace
} // namespace prepare
