#include "base/Ideographs.h"

#include <gtest/gtest.h>

namespace {

// The first and the last character of each range, and their neighbours.
TEST(Ideographs, AreTheBlocksThatAreAnEmWide)
{
    constexpr char32_t kRanges[][2] = {{0x1100, 0x115F}, {0x2E80, 0xA4CF},  {0xAC00, 0xD7A3},
                                       {0xF900, 0xFAFF}, {0xFE30, 0xFE4F},  {0xFF00, 0xFF60},
                                       {0xFFE0, 0xFFE6}, {0x20000, 0x3FFFD}};
    for (const auto& range : kRanges) {
        SCOPED_TRACE(static_cast<unsigned>(range[0]));
        EXPECT_FALSE(IsIdeograph(range[0] - 1));
        EXPECT_TRUE(IsIdeograph(range[0]));
        EXPECT_TRUE(IsIdeograph(range[1]));
        EXPECT_FALSE(IsIdeograph(range[1] + 1));
    }
}

TEST(Ideographs, AreNoLettersOfOtherAlphabets)
{
    for (const char32_t letter : {U'a', U'\u00E9', U'\u0416', U'\u05D0', U'\u0E01', U'\uFF76'})
        EXPECT_FALSE(IsIdeograph(letter));
}

} // namespace
