#include "support/Import.h"

#include <gtest/gtest.h>

TEST(Line, IsDrawnWithYDownAndItsStyleInOrder)
{
    EXPECT_EQ(TraceOf(EntitiesSection({"0", "LINE", "10", "0", "20", "0", "11", "10", "21", "5"})),
              "qlmCreateLine(ctx, \"\", 0, -0, 10, -5, 0, 0) = n1\n"
              "qlmSetAttributeByNode(ctx, n1, \"stroke-width\", \"0.500000\")\n"
              "qlmSetAttributeByNode(ctx, n1, \"stroke\", \"RGB(255,255,255)\")\n"
              "qlmSetAttributeByNode(ctx, n1, \"stroke-dasharray\", \"\")\n");
}
