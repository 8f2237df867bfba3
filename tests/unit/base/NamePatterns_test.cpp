// Patterns of names.
#include "base/NamePatterns.h"

#include <gtest/gtest.h>

namespace {

bool Matches(std::string_view text, std::string_view pattern)
{
    return MatchesPattern(text, pattern, Wildcards::QuestionMark);
}

} // namespace

TEST(Patterns, AStarIsAnyText)
{
    EXPECT_TRUE(Matches("", "*"));
    EXPECT_TRUE(Matches("abc", "a*c"));
    EXPECT_TRUE(Matches("ac", "a*c"));
    EXPECT_TRUE(Matches("abcbc", "a*bc"));
    EXPECT_TRUE(Matches("abc", "***"));
    EXPECT_FALSE(Matches("abd", "a*c"));
    EXPECT_FALSE(Matches("abc", "ab"));
    EXPECT_FALSE(Matches("ab", "abc"));
    EXPECT_FALSE(Matches("", "a"));
    EXPECT_TRUE(Matches("", ""));
}

TEST(Patterns, TheCaseOfLettersDoesNotMatter)
{
    EXPECT_TRUE(Matches("Walls", "WA*s"));
    EXPECT_FALSE(Matches("\xC3\xA4", "\xC3\x84")); // beyond ASCII it does
}

TEST(Patterns, AQuestionMarkIsOneCharacter)
{
    EXPECT_TRUE(Matches("a\xC3\xA4", "a?"));
    EXPECT_TRUE(Matches("\xC3\xA4-", "*?-"));
    EXPECT_FALSE(Matches("a", "a?"));
    EXPECT_FALSE(Matches("\xC3\xA4", "??"));
    EXPECT_FALSE(Matches("\xC3\xA4", "*??"));
}

TEST(Patterns, AQuestionMarkIsItselfWhereStarsAreAllThatCounts)
{
    EXPECT_TRUE(MatchesPattern("a?", "*?", Wildcards::StarAlone));
    EXPECT_FALSE(MatchesPattern("ab", "a?", Wildcards::StarAlone));
}
