#include "prepare/drawing/ShiftJisGuess.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string_view>

namespace prepare {
namespace {

// Texts on lines 1, 2, ...
std::uint64_t GuessOf(std::initializer_list<std::string_view> texts, int utf8 = 0)
{
    ShiftJisGuess guess;
    std::uint64_t line = 0;
    for (const std::string_view text : texts)
        guess.Take(text, ++line);
    for (int i = 0; i < utf8; ++i)
        guess.TakeUtf8();
    return guess.FirstLine();
}

// "plan", "room 1", "north" alone, narrow letters.
TEST(ShiftJisGuess, RunsOfTwoBytesWithOneThatIsNotWesternAreJapanese)
{
    EXPECT_EQ(GuessOf({"\x95\xBD\x96\xCA\x90\x7D"}), 1u);
    EXPECT_EQ(GuessOf({"\xC4\xDE\xB1", "1F \x95\x94\x89\xAE 1", "\x96\x6B", "\x95\xBD\x96\xCA\x90\x7D"}), 4u);
}

TEST(ShiftJisGuess, TextsOfOtherCodePagesAreNot)
{
    EXPECT_EQ(GuessOf({}), 0u);
    EXPECT_EQ(GuessOf({"K\xDC"
                       "CHE",
                       "Ma\xDF"
                       "e",
                       "\xD8 20"}),
              0u); // Western European
    EXPECT_EQ(GuessOf({"T\x81r",
                       "K\x81"
                       "che",
                       "f\x81r"}),
              0u);                                                            // the same of DOS
    EXPECT_EQ(GuessOf({"\x8F\x8B\x80\x8D", "\x90\x80\x87\x90\x85\x87"}), 0u); // Russian of DOS
    EXPECT_EQ(GuessOf({"\xCF\xEB\xE0\xED"}), 0u);                             // of Windows
    EXPECT_EQ(GuessOf({"\xD6\xF7\xCD\xC6\xB7\xBD\xB0\xB8"}), 0u);             // Chinese
}

TEST(ShiftJisGuess, TextsThatAreSomethingElseSpeakAgainstIt)
{
    EXPECT_EQ(GuessOf({"\x95\xBD\x96\xCA\x90\x7D"}, 1), 0u);
    EXPECT_EQ(GuessOf({"\x95\xBD\x96\xCA\x90\x7D", "\x95\xBD\x96\xCA\x90"}), 0u);
    EXPECT_EQ(
        GuessOf({"\x95\xBD\x96\xCA\x90\x7D\x95\xBD\x96\xCA\x90\x7D\x95\xBD\x96\xCA\x90\x7D\x95\xBD\x96\xCA"},
                1),
        1u);
}

} // namespace
} // namespace prepare
