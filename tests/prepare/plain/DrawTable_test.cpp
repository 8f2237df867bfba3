#include "support/TextTrial.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

Table Gridded()
{
    Table table;
    table.line = 7;
    table.point = {10, 20, 0};
    table.rows = 2;
    table.columns = 2;
    table.rowHeights = {4, 2};
    table.columnWidths = {6, 8};
    return table;
}

TEST(DrawTable, WithoutItsPictureItHasCellsAndTexts)
{
    TextTrial trial;
    Table table = Gridded();
    table.cells = {"T", "", "A", "B"};
    EXPECT_EQ(trial.Draw(table),
              (Lines{"line 10,20 24,20", "line 10,16 24,16", "line 10,20 10,16", "line 24,20 24,16",
                     "text 'T' at 17,17 along 2,0 up 0,2 middle", "line 10,14 24,14", "line 10,16 10,14",
                     "line 16,16 16,14", "text 'A' at 13,14.5 along 1,0 up 0,1 middle", "line 24,16 24,14",
                     "text 'B' at 20,14.5 along 1,0 up 0,1 middle"}));
    EXPECT_EQ(trial.Findings(),
              Lines{"Changed ACAD_TABLE: it has no picture block: drawn without its style (1 from line 7)"});
}

TEST(DrawTable, DrawsNoMoreRowsThanItHasCells)
{
    TextTrial trial;
    Table table = Gridded();
    table.rows = table.columns = 100'000;
    table.rowHeights.assign(100'000, 1);
    table.columnWidths.assign(100'000, 1);
    table.cells = {"A"};
    EXPECT_EQ(trial.Draw(table).size(), 5u); // the top, the bottom, the sides and the text of one row
}

TEST(DrawTable, WithoutCellsItIsReported)
{
    TextTrial trial;
    EXPECT_EQ(trial.Draw(Gridded()), Lines{});
    EXPECT_EQ(trial.Findings(),
              Lines{"NotShown ACAD_TABLE: it has no picture block and no cells (1 from line 7)"});
}

} // namespace
} // namespace prepare
