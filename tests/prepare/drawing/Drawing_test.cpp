#include "prepare/drawing/Drawing.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

TEST(Header, GivesItsValuesOrWhatIsAskedForOtherwise)
{
    Header header;
    header["$LTSCALE"].values = {{40, "2.5"}};
    header["$MEASUREMENT"].values = {{70, "     1"}};
    header["$DWGCODEPAGE"].values = {{3, "ANSI_1251"}};
    EXPECT_EQ(header.Real("$LTSCALE", 1), 2.5);
    EXPECT_EQ(header.Integer("$MEASUREMENT", 0), 1);
    EXPECT_EQ(header.Text("$DWGCODEPAGE"), "ANSI_1251");
    EXPECT_EQ(header.Real("$TEXTSIZE", 7), 7);
    EXPECT_EQ(header.Integer("$ATTMODE", 3), 3);
    EXPECT_EQ(header.Text("$MENU"), "");
}

TEST(Drawing, FindsWhatItsTablesHave)
{
    Drawing drawing;
    const NameId walls = drawing.names.Of("Walls");
    drawing.layers[walls].colour = 3;
    drawing.blocks[walls] = std::make_unique<Block>();
    ASSERT_NE(drawing.FindLayer(walls), nullptr);
    EXPECT_EQ(drawing.FindLayer(walls)->colour, 3);
    EXPECT_EQ(drawing.FindBlock(walls), drawing.blocks[walls].get());
    EXPECT_EQ(drawing.FindLayer(drawing.names.Of("Doors")), nullptr);
    EXPECT_EQ(drawing.FindLineType(walls), nullptr);
    EXPECT_EQ(drawing.FindTextStyle(walls), nullptr);
    EXPECT_EQ(drawing.FindBlock(kNoName), nullptr);
}

} // namespace
} // namespace prepare
