#include "prepare/drawing/EntityType.h"
#include "prepare/drawing/Names.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

TEST(Names, TheSameInAnyCaseIsOneNameAndReadsAsItCameFirst)
{
    Names names;
    const NameId walls = names.Of("Walls");
    EXPECT_EQ(names.Of("WALLS"), walls);
    EXPECT_EQ(names.Find("walls"), walls);
    EXPECT_EQ(names.Text(walls), "Walls");
    EXPECT_NE(names.Of("Wall"), walls);
}

TEST(Names, OnlyAsciiLettersHaveCases)
{
    Names names;
    EXPECT_NE(names.Of("\xC3\x84"), names.Of("\xC3\xA4")); // capital and small a with two dots
}

TEST(Names, TheEmptyNameAndNamesThatNeverCameAreNone)
{
    Names names;
    EXPECT_EQ(names.Of(""), kNoName);
    EXPECT_EQ(names.Find("Walls"), kNoName);
}

TEST(EntityTypes, AreFoundByEachOfTheirNames)
{
    EXPECT_EQ(EntityTypeOf("LINE"), EntityType::Line);
    EXPECT_EQ(EntityTypeOf("3DFACE"), EntityType::Face);
    EXPECT_EQ(EntityTypeOf("MULTILEADER"), EntityType::MultiLeader);
    EXPECT_EQ(EntityTypeOf("MLEADER"), EntityType::MultiLeader);
    EXPECT_EQ(EntityTypeOf("3DSOLID"), EntityType::Other);
    EXPECT_EQ(EntityTypeOf(""), EntityType::Other);
}

} // namespace
} // namespace prepare
