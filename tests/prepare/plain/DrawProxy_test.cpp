#include "support/Stage.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>

namespace prepare {
namespace {

// Writes a picture command by command, lowest byte first.
class Picture {
public:
    Picture& Command(std::int32_t type, const std::string& data)
    {
        m_commands += Integer(static_cast<std::int32_t>(data.size()) + 8) + Integer(type) + data;
        return *this;
    }
    Proxy Entity() const
    {
        Proxy proxy;
        proxy.graphics = Integer(static_cast<std::int32_t>(m_commands.size()) + 8) + Integer(1) + m_commands;
        return proxy;
    }

    static std::string Integer(std::int32_t value) { return Bytes(static_cast<std::uint32_t>(value), 4); }
    static std::string Reals(std::initializer_list<double> values)
    {
        std::string bytes;
        for (const double value : values)
            bytes += Bytes(std::bit_cast<std::uint64_t>(value), 8);
        return bytes;
    }

private:
    static std::string Bytes(std::uint64_t value, int count)
    {
        std::string bytes;
        for (int i = 0; i < count; ++i)
            bytes += static_cast<char>(value >> 8 * i & 0xFF);
        return bytes;
    }

    std::string m_commands;
};

const auto kTwoPoints = Picture::Integer(2) + Picture::Reals({0, 0, 0, 3, 4, 0});

TEST(DrawProxy, WithoutAPictureItIsReported)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Proxy()), Lines{});
    EXPECT_EQ(stage.Findings(), Lines{"not shown: it carries no picture"});
}

TEST(DrawProxy, PolylinesAndPolygonsAreDrawn)
{
    Stage stage;
    const std::string corners = Picture::Integer(3) + Picture::Reals({0, 0, 0, 1, 0, 0, 1, 1, 0});
    EXPECT_EQ(stage.Draw(Picture().Command(6, corners).Command(7, corners).Command(32, corners).Entity()),
              (Lines{"polyline 0,0 1,0 1,1", "closed polyline 0,0 1,0 1,1", "polyline 0,0 1,0 1,1"}));
    EXPECT_EQ(stage.Findings(), Lines{});
}

TEST(DrawProxy, CirclesAndArcsAreDrawn)
{
    Stage stage;
    EXPECT_EQ(
        stage.Draw(Picture()
                       .Command(2, Picture::Reals({1, 2, 0, 5, 0, 0, 1}))
                       .Command(3, Picture::Reals({1, 0, 0, 0, 1, 0, -1, 0, 0}))
                       .Command(4, Picture::Reals({0, 0, 0, 2, 0, 0, 1, 0, 3, 0, 1}) + Picture::Integer(0))
                       .Command(5, Picture::Reals({1, 0, 0, 0, 1, 0, -1, 0, 0}) + Picture::Integer(0))
                       .Command(5, Picture::Reals({-1, 0, 0, 0, 1, 0, 1, 0, 0}) + Picture::Integer(0))
                       .Entity()),
        (Lines{"circle 1,2 radius 5", "circle 0,0 radius 1", "arc 0,0 radius 2 from 1.5708 to 2.5708",
               "arc 0,0 radius 1 from 0 to 3.14159", "arc 0,0 radius 1 from 0 to 3.14159"}));
}

TEST(DrawProxy, MeshesAndShellsAreTheirLines)
{
    Stage stage;
    const std::string square = Picture::Reals({0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0});
    EXPECT_EQ(stage.Draw(Picture().Command(8, Picture::Integer(2) + Picture::Integer(2) + square).Entity()),
              (Lines{"polyline 0,0 1,0", "polyline 0,1 1,1", "polyline 0,0 0,1", "polyline 1,0 1,1"}));
    std::string faces = Picture::Integer(8);
    for (const std::int32_t number : {3, 0, 1, 3, 3, 0, 3, 2})
        faces += Picture::Integer(number);
    EXPECT_EQ(stage.Draw(Picture().Command(9, Picture::Integer(4) + square + faces).Entity()),
              (Lines{"closed polyline 0,0 1,0 1,1", "closed polyline 0,0 1,1 0,1"}));
}

TEST(DrawProxy, ColoursCountForWhatFollows)
{
    Stage stage;
    EXPECT_EQ(
        stage.Draw(Picture()
                       .Command(14, Picture::Integer(3))
                       .Command(6, kTwoPoints)
                       .Command(22, Picture::Integer(static_cast<std::int32_t>(0xC2FF8000U)))
                       .Command(6, kTwoPoints)
                       .Command(14, Picture::Integer(-9))
                       .Command(22, Picture::Integer(static_cast<std::int32_t>(0xC3000005U)))
                       .Command(6, kTwoPoints)
                       .Entity()),
        (Lines{"polyline 0,0 3,4 colour 3", "polyline 0,0 3,4 rgb ff8000", "polyline 0,0 3,4 colour 5"}));
}

TEST(DrawProxy, TransformsHoldUntilTheyAreTakenBack)
{
    Stage stage;
    const std::string matrix = Picture::Reals({0, -1, 0, 10, 1, 0, 0, 20, 0, 0, 1, 0, 0, 0, 0, 1});
    EXPECT_EQ(stage.Draw(Picture()
                             .Command(29, matrix)
                             .Command(6, kTwoPoints)
                             .Command(31, "")
                             .Command(31, "")
                             .Command(6, kTwoPoints)
                             .Entity()),
              (Lines{"polyline 10,20 6,23", "polyline 0,0 3,4"}));
}

TEST(DrawProxy, WhatIsNotKnownIsLeftOutAndReported)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Picture().Command(10, "").Command(18, "").Command(6, kTwoPoints).Entity()),
              Lines{"polyline 0,0 3,4"});
    EXPECT_EQ(stage.Findings(), (Lines{"changed: parts of its picture are left out"}));
}

TEST(DrawProxy, SizesAndCountsThatAreNotTrueEndIt)
{
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    const std::string points = Picture::Reals({0, 0, 0, 3, 4, 0});
    for (const std::int32_t count : {kMost, kLeast, -1}) {
        Stage stage;
        const std::string number = Picture::Integer(count);
        EXPECT_EQ(stage.Draw(Picture().Command(6, number + points).Entity()),
                  count > 0 ? Lines{"polyline 0,0 3,4"} : Lines{});
        stage.Draw(
            Picture().Command(8, number + number + points).Command(9, number + points + number).Entity());
        stage.Draw(Picture().Command(9, Picture::Integer(2) + points + number + number + number).Entity());
        Proxy cut = Picture().Command(6, kTwoPoints).Entity();
        cut.graphics.replace(8, 4, number); // the command's size
        EXPECT_EQ(stage.Draw(cut), Lines{});
        EXPECT_EQ(stage.Findings().back(), "repaired: its picture is cut off");
    }
}

TEST(DrawProxy, EveryBeginningOfAPictureIsRead)
{
    const Proxy whole =
        Picture().Command(2, Picture::Reals({1, 2, 0, 5, 0, 0, 1})).Command(6, kTwoPoints).Entity();
    for (std::size_t length = 1; length < whole.graphics.size(); ++length) {
        Stage stage;
        Proxy cut;
        cut.graphics = whole.graphics.substr(0, length);
        const std::size_t circleEnd = 8 + 8 + 7 * 8;
        EXPECT_EQ(stage.Draw(cut).size(), length < circleEnd ? 0U : 1U) << length;
        EXPECT_EQ(stage.Findings().back(), "repaired: its picture is cut off") << length;
    }
}

} // namespace
} // namespace prepare
