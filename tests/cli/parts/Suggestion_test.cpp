// What was meant by a word that is written wrongly.
#include "cli/options/Suggestion.h"

#include <gtest/gtest.h>

using plexorn::DrawCommand;
using plexorn::EditDistance;
using plexorn::InfoCommand;
using plexorn::SuggestedCommand;
using plexorn::SuggestedOption;

TEST(EditDistance, CountsLetters)
{
    EXPECT_EQ(EditDistance("", ""), 0u);
    EXPECT_EQ(EditDistance("info", "info"), 0u);
    EXPECT_EQ(EditDistance("info", "inf"), 1u);
    EXPECT_EQ(EditDistance("info", "infos"), 1u);
    EXPECT_EQ(EditDistance("info", "into"), 1u);
    EXPECT_EQ(EditDistance("info", "inof"), 1u);
    EXPECT_EQ(EditDistance("kitten", "sitting"), 3u);
    EXPECT_EQ(EditDistance("abc", ""), 3u);
}

TEST(EditDistance, WordsOfOtherLengthsAreFarApart)
{
    EXPECT_GT(EditDistance("info", std::string(100'000, 'a')), 3u);
    EXPECT_GT(EditDistance("", "abcd"), 3u);
}

TEST(Suggestion, OptionsOfTheCommandAndOfTheOther)
{
    EXPECT_EQ(SuggestedOption(DrawCommand(), "--papre"), "--paper");
    EXPECT_EQ(SuggestedOption(DrawCommand(), "--unit=mm"), "--units");
    EXPECT_EQ(SuggestedOption(DrawCommand(), "--texts"), "plexorn info --texts");
    EXPECT_EQ(SuggestedOption(InfoCommand(), "--strict"), "plexorn --strict");
    EXPECT_EQ(SuggestedOption(InfoCommand(), "--jsno"), "--json");
}

TEST(Suggestion, NothingIsNear)
{
    for (const char* argument : {"--", "-x", "--xyz", "plan.dxf", ""})
        EXPECT_EQ(SuggestedOption(DrawCommand(), argument), "");
    EXPECT_EQ(SuggestedCommand("plan.dxf"), "");
    EXPECT_EQ(SuggestedCommand(""), "");
    EXPECT_EQ(SuggestedCommand("information"), "");
}
