#include "prepare/write/PlainLog.h"

#include "tests/prepare/support/RecordingSink.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace prepare {
namespace {

// Passes what a log kept on to a sink.
class ToSink final : public LogVisitor {
public:
    ToSink(const StyleTable& styles, PlainSink& sink) : m_styles(styles), m_sink(sink) {}

    void Line(StyleId style, Point2 start, Point2 end) override { m_sink.Line(m_styles[style], start, end); }
    void Circle(StyleId style, Point2 centre, double radius) override
    {
        m_sink.Circle(m_styles[style], centre, radius);
    }
    void Arc(StyleId style, Point2 centre, double radius, double start, double end) override
    {
        m_sink.Arc(m_styles[style], centre, radius, start, end);
    }
    void Ellipse(StyleId style, Point2 centre, Point2 majorAxis, double ratio, double start,
                 double end) override
    {
        m_sink.Ellipse(m_styles[style], centre, majorAxis, ratio, start, end);
    }
    void Polyline(StyleId style, std::span<const PlainVertex> vertices, bool isClosed) override
    {
        m_sink.Polyline(m_styles[style], vertices, isClosed);
    }
    void Fill(StyleId style, std::span<const std::vector<Point2>> rings) override
    {
        m_sink.Fill(m_styles[style], rings);
    }
    void Mask(StyleId, std::span<const std::vector<Point2>> rings) override { m_sink.Mask(rings); }
    void Text(StyleId style, const LoggedText& text) override
    {
        m_sink.Text(m_styles[style],
                    {std::string(text.text), text.point, text.along, text.up, text.anchor, text.style});
        signs.push_back(std::signbit(text.along.y));
        fonts.push_back(text.style);
    }
    void LineOfText(Point2 point, double spread, std::span<const LoggedRun> runs) override
    {
        points.push_back(point);
        spreads.push_back(spread);
        for (const LoggedRun& run : runs) {
            blanks.push_back(run.blanks);
            Text(run.style, run.text);
        }
    }
    void Insert(std::size_t block, Point2 point, double rotation, bool isMirrored) override
    {
        m_sink.Insert(block, point, rotation, isMirrored);
        signs.push_back(std::signbit(rotation));
    }

    std::vector<bool> signs; // of texts and inserts: whether a 0 is a negative one
    std::vector<NameId> fonts;
    std::vector<double> spreads;
    std::vector<Point2> points;
    std::vector<std::size_t> blanks;

private:
    const StyleTable& m_styles;
    PlainSink& m_sink;
};

class PlainLogTest : public testing::Test {
protected:
    std::vector<std::string> Kept()
    {
        RecordingSink sink;
        visitor.emplace(room.Styles(), sink);
        log.Replay(*visitor);
        return std::move(sink.lines);
    }

    LogRoom room;
    PlainLog log{room};
    std::optional<ToSink> visitor;
};

// What each kind has is given to a log and to a sink.
template <class... Sinks>
void DrawEachKind(Sinks&... sinks)
{
    Style red, blue;
    red.colour.index = 1;
    blue.colour.index = 5;
    const std::vector<PlainVertex> straight = {{{0, 0}, 0}, {{1, 0}, 0}, {{1, 1}, 0}};
    const std::vector<PlainVertex> bent = {{{0, 0}, 0.5}, {{1, 0}, 0}};
    const std::vector<PlainVertex> many(300, {{7, 8}, 0}); // more than a byte counts
    const std::vector<std::vector<Point2>> rings = {{{0, 0}, {4, 0}, {0, 4}}, {{1, 1}, {2, 1}, {1, 2}}};
    const auto draw = [&](PlainSink& sink) {
        sink.Line(red, {0, 1}, {2.5, 3});
        sink.Circle(blue, {1, 2}, 3);
        sink.Arc(red, {1, 2}, 3, 0.5, 1.5);
        sink.Ellipse(blue, {1, 2}, {3, 4}, 0.5, 0.25, 2);
        sink.Polyline(red, straight, true);
        sink.Polyline(red, straight, false);
        sink.Polyline(blue, bent, false);
        sink.Polyline(blue, many, true);
        sink.Fill(red, rings);
        sink.Mask(rings);
        sink.Text(red, {"level", {1, 2}, {3, 0}, {0, 4}, Anchor::Middle, 300});
        sink.Text(blue, {"turned", {1, 2}, {0, 3}, {-4, 0}, Anchor::End, kNoName});
        sink.Text(blue, {std::string(200, 'a'), {1, 2}, {3, 1}, {-1, 4}, Anchor::Start, 1});
        sink.Insert(0, {1, 2}, 0, false);
        sink.Insert(200, {1, 2}, 0.5, true);
    };
    (draw(sinks), ...);
}

TEST_F(PlainLogTest, GivesEachKindAsItCame)
{
    RecordingSink drawn;
    DrawEachKind(log, drawn);
    EXPECT_EQ(Kept(), drawn.lines);
    EXPECT_EQ(visitor->fonts, (std::vector<NameId>{300, kNoName, 1}));
}

TEST_F(PlainLogTest, ManyStylesKeepTheirNumbers)
{
    RecordingSink drawn;
    for (std::int32_t index = 1; index <= 255; ++index)
        for (const double width : {0.0, 1.0, 2.0}) {
            Style style;
            style.colour.index = index;
            style.width = width;
            log.Line(style, {0, 0}, {1, 1});
            drawn.Line(style, {0, 0}, {1, 1});
        }
    EXPECT_EQ(Kept(), drawn.lines);
}

TEST_F(PlainLogTest, AZeroKeepsItsSign)
{
    for (const double zero : {0.0, -0.0}) {
        log.Text({}, {"A", {1, 2}, {-3, zero}, {0, 4}, Anchor::Start, kNoName});
        log.Insert(0, {}, zero, false);
    }
    Kept();
    EXPECT_EQ(visitor->signs, (std::vector<bool>{false, false, true, true}));
}

TEST_F(PlainLogTest, WhatComesToAnotherLogInBetweenIsNotInIt)
{
    PlainLog other(room);
    RecordingSink drawn, drawnOfOther;
    EXPECT_TRUE(log.IsEmpty());
    for (int i = 0; i < 100; ++i) {
        log.Line({}, {0, 0}, {1.0 * i, 1});
        drawn.Line({}, {0, 0}, {1.0 * i, 1});
        if (i % 3 != 0)
            continue;
        other.Circle({}, {1.0 * i, 0}, 1);
        drawnOfOther.Circle({}, {1.0 * i, 0}, 1);
    }
    EXPECT_FALSE(log.IsEmpty());
    EXPECT_EQ(Kept(), drawn.lines);
    RecordingSink sink;
    visitor.emplace(room.Styles(), sink);
    other.Replay(*visitor);
    EXPECT_EQ(sink.lines, drawnOfOther.lines);
}

TEST_F(PlainLogTest, ComesInTheOrderOfItsPlacesAndElseAsItCame)
{
    const auto add = [&](double x) { log.Insert(0, {x, 0}, 0, false); };
    add(1);
    log.UsePlace(7);
    add(5);
    add(6);
    log.UsePlace(3);
    add(3);
    log.UsePlace(7);
    add(7);
    log.UsePlace(3);
    add(4);
    log.UsePlace(0);
    add(2);
    RecordingSink drawn;
    for (const double x : {1, 2, 3, 4, 5, 6, 7})
        drawn.Insert(0, {x, 0}, 0, false);
    EXPECT_EQ(Kept(), drawn.lines);
}

TEST_F(PlainLogTest, ALineOfTextKeepsItsBlanksAndHowWideTheyAre)
{
    const PlainText level{"A", {1, 2}, {3, 0}, {0, 4}, Anchor::Start, kNoName};
    const PlainText turned{"B", {1, 2}, {3, 1}, {-1, 4}, Anchor::Start, kNoName};
    const PlainRun runs[] = {{{}, level, 0}, {{}, turned, 1000}};
    log.LineOfText({5, 6}, 0.25, runs);
    RecordingSink drawn;
    drawn.Text({}, level);
    drawn.Text({}, turned);
    EXPECT_EQ(Kept(), drawn.lines);
    EXPECT_EQ(visitor->points, std::vector<Point2>({{5, 6}}));
    EXPECT_EQ(visitor->spreads, std::vector<double>{0.25});
    EXPECT_EQ(visitor->blanks, (std::vector<std::size_t>{0, 1000}));
}

} // namespace
} // namespace prepare
