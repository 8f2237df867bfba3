#include "prepare/write/StyleTable.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

TEST(StyleTable, EqualStylesHaveOneNumber)
{
    StyleTable styles;
    Style red;
    red.colour.index = 1;
    EXPECT_EQ(styles.Of(Style()), 0U);
    EXPECT_EQ(styles.Of(red), 1U);
    EXPECT_EQ(styles.Of(Style()), 0U);
    EXPECT_EQ(styles.Count(), 2U);
    EXPECT_EQ(styles[1].colour.index, 1);
}

TEST(StyleTable, StylesThatDifferInAnythingHaveNumbersOfTheirOwn)
{
    Style colour, trueColour, weight, width, scale, layer;
    colour.colour.index = 1;
    trueColour.colour = {true, 0x010203, 7};
    weight.weight = 13;
    width.width = 2;
    scale.lineTypeScale = 3;
    layer.layer = 4;
    StyleTable styles;
    StyleId next = 0;
    for (const Style& style : {Style(), colour, trueColour, weight, width, scale, layer})
        EXPECT_EQ(styles.Of(style), next++);
}

TEST(StyleTable, LineTypesWithoutNamesAreKeptByTheirDashes)
{
    StyleTable styles;
    LineType lineType;
    Style style;
    style.lineType = &lineType;
    lineType.dashes = {1, -1};
    const StyleId first = styles.Of(style);
    lineType.dashes = {2, -1};
    const StyleId second = styles.Of(style);
    EXPECT_NE(first, second);
    LineType another;
    another.dashes = {1, -1};
    style.lineType = &another;
    EXPECT_EQ(styles.Of(style), first);
    another.dashes.clear();
    EXPECT_EQ(styles[first].lineType->dashes, (std::vector<double>{1, -1}));
    EXPECT_EQ(styles[second].lineType->dashes, (std::vector<double>{2, -1}));
}

TEST(StyleTable, LineTypesAreKnownByTheirNames)
{
    StyleTable styles;
    LineType dashed, dotted;
    dashed.name = 1;
    dotted.name = 2;
    Style style;
    style.lineType = &dashed;
    const StyleId first = styles.Of(style);
    style.lineType = &dotted;
    EXPECT_NE(styles.Of(style), first);
    EXPECT_EQ(styles[first].lineType, &dashed);
}

} // namespace
} // namespace prepare
