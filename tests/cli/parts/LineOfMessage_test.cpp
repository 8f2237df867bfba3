// The line that a message names, in each form that the module's messages have.
#include "cli/report/LineOfMessage.h"

#include <gtest/gtest.h>

using plexorn::LineOfMessage;
using plexorn::WithoutLine;

TEST(LineOfMessage, AfterAWord)
{
    EXPECT_EQ(LineOfMessage("ReadENTITIES_LINE Failed to read integer from 'x', Line:7"), "7");
    EXPECT_EQ(LineOfMessage("CDxfRead Out of memory, Line:0"), "0");
    EXPECT_EQ(LineOfMessage("Line:18446744073709551616"), "18446744073709551616");
}

TEST(LineOfMessage, InParentheses)
{
    EXPECT_EQ(LineOfMessage("WALLS - Unknown Section Name Line (4)"), "4");
    EXPECT_EQ(LineOfMessage("SOLID - Unknown Object Type Name (6)"), "6");
}

TEST(LineOfMessage, NoneIsNamed)
{
    EXPECT_EQ(LineOfMessage(""), "");
    EXPECT_EQ(LineOfMessage("12"), "");
    EXPECT_EQ(LineOfMessage("(12)"), "");
    EXPECT_EQ(LineOfMessage("Failed to load DXF file."), "");
    EXPECT_EQ(LineOfMessage("AcDbDimension data duplicated."), "");
    EXPECT_EQ(LineOfMessage("Line:"), "");
    EXPECT_EQ(LineOfMessage("Line ()"), "");
    EXPECT_EQ(LineOfMessage("Line:-7)"), "");
}

TEST(LineOfMessage, OnlyAtTheEndAndWholeInItsForm)
{
    EXPECT_EQ(LineOfMessage("Line:7 and more"), "");
    EXPECT_EQ(LineOfMessage("Line:7)"), "");
    EXPECT_EQ(LineOfMessage("Line 7"), "");
    EXPECT_EQ(LineOfMessage("name(7)"), "");
    EXPECT_EQ(LineOfMessage("from 'Line:3', Line:7"), "7");
}

TEST(LineOfMessage, TheTextWithoutIt)
{
    EXPECT_EQ(WithoutLine("Failed to read integer from 'x', Line:7"), "Failed to read integer from 'x'");
    EXPECT_EQ(WithoutLine("Failed to read integer from 'x' Line:7"), "Failed to read integer from 'x'");
    EXPECT_EQ(WithoutLine("WALLS - Unknown Section Name Line (4)"), "WALLS - Unknown Section Name");
    EXPECT_EQ(WithoutLine("SOLID - Unknown Object Type Name (6)"), "SOLID - Unknown Object Type Name");
    EXPECT_EQ(WithoutLine("AcDbDimension data duplicated."), "AcDbDimension data duplicated.");
    EXPECT_EQ(WithoutLine("Line:7"), "");
    EXPECT_EQ(WithoutLine(""), "");
}
