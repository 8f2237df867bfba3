#include "prepare/plain/LightColour.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

std::uint32_t Light(std::int32_t index)
{
    const Colour light = LightColour({false, 0, index});
    EXPECT_TRUE(light.isTrue);
    return light.rgb;
}

TEST(LightColour, TrueColoursAreHalfwayToWhite)
{
    EXPECT_EQ(LightColour({true, 0x000000, 7}).rgb, 0x7F7F7FU);
    EXPECT_EQ(LightColour({true, 0xFFFFFF, 7}).rgb, 0xFFFFFFU);
    EXPECT_EQ(LightColour({true, 0x8040C1, 7}).rgb, 0xBF9FE0U);
}

TEST(LightColour, NumberedColoursBecomeTrueOnes)
{
    EXPECT_EQ(Light(1), 0xFF7F7FU);
    EXPECT_EQ(Light(5), 0x7F7FFFU);
    EXPECT_EQ(Light(8), 0xBFBFBFU);
    EXPECT_EQ(Light(250), 0x999999U);
    EXPECT_EQ(Light(255), 0xFFFFFFU);
}

TEST(LightColour, HuesRunAroundTheCircle)
{
    EXPECT_EQ(Light(10), 0xFF7F7FU);  // red
    EXPECT_EQ(Light(50), 0xFFFF7FU);  // yellow
    EXPECT_EQ(Light(90), 0x7FFF7FU);  // green
    EXPECT_EQ(Light(130), 0x7FFFFFU); // cyan
    EXPECT_EQ(Light(170), 0x7F7FFFU); // blue
    EXPECT_EQ(Light(210), 0xFF7FFFU); // magenta
    EXPECT_EQ(Light(30), 0xFFBF7FU);  // orange: ff7f00
    EXPECT_EQ(Light(240), 0xFF7F9FU); // ff003f
    EXPECT_EQ(Light(11), 0xFFBFBFU);  // ff7f7f
    EXPECT_EQ(Light(178), 0x7F7F92U); // 000026
}

TEST(LightColour, WhatShowsOnAnyBackgroundIsGrey)
{
    EXPECT_EQ(Light(7), 0x808080U);
    EXPECT_EQ(Light(0), 0xBFBFBFU); // no colour has this number
    EXPECT_EQ(Light(300), 0xBFBFBFU);
}

} // namespace
} // namespace prepare
