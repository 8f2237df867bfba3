// What was meant by a word that is written wrongly.
#include "cli/options/Suggestion.h"

#include <gtest/gtest.h>

using plexorn::CommandFor;
using plexorn::EditDistance;
using plexorn::SuggestedCommand;
using plexorn::SuggestedOption;
using plexorn::Task;

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
    EXPECT_EQ(SuggestedOption(CommandFor(Task::Draw), "--papre"), "--paper");
    EXPECT_EQ(SuggestedOption(CommandFor(Task::Draw), "--unit=mm"), "--units");
    EXPECT_EQ(SuggestedOption(CommandFor(Task::Draw), "--texts"), "plexorn info --texts");
    EXPECT_EQ(SuggestedOption(CommandFor(Task::Info), "--strict"), "plexorn --strict");
    EXPECT_EQ(SuggestedOption(CommandFor(Task::Info), "--jsno"), "--json");
    EXPECT_EQ(SuggestedOption(CommandFor(Task::Draw), "--for=standard"), "plexorn prepare --for");
}

TEST(Suggestion, ACommandIsMeant)
{
    EXPECT_EQ(SuggestedCommand("prepair"), "plexorn prepare");
    EXPECT_EQ(SuggestedCommand("preapre"), "plexorn prepare");
    EXPECT_EQ(SuggestedCommand("into"), "plexorn info");
}

TEST(Suggestion, NothingIsNear)
{
    for (const char* argument : {"--", "-x", "--xyz", "plan.dxf", ""})
        EXPECT_EQ(SuggestedOption(CommandFor(Task::Draw), argument), "");
    EXPECT_EQ(SuggestedCommand("plan.dxf"), "");
    EXPECT_EQ(SuggestedCommand(""), "");
    EXPECT_EQ(SuggestedCommand("information"), "");
    EXPECT_EQ(SuggestedCommand("prelude"), "");
    EXPECT_EQ(SuggestedCommand("auto"), "");
}
