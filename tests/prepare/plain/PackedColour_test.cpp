#include "prepare/plain/PackedColour.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

TEST(PackedColour, ItsFirstByteSaysWhatTheOthersAre)
{
    EXPECT_EQ(UnpackColour(static_cast<std::int32_t>(0xC0000000)).colour, kByLayer);
    EXPECT_EQ(UnpackColour(static_cast<std::int32_t>(0xC1000000)).colour, kByBlock);
    EXPECT_EQ(UnpackColour(static_cast<std::int32_t>(0xC2102030)).trueColour, 0x102030);
    EXPECT_EQ(UnpackColour(static_cast<std::int32_t>(0xC3000007)).colour, 7);
    EXPECT_EQ(UnpackColour(3).colour, kByBlock);
}

} // namespace
} // namespace prepare
