// The arrow heads of dimension lines.
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <string>

using namespace svghost_tests;

namespace {

void SetArrow(const HostDocument& document, QlmNode line, bool begin, const wchar_t* type)
{
    document.Set(line, begin ? L"pg-begin-arrow-type" : L"pg-end-arrow-type", type);
    document.Set(line, begin ? L"pg-begin-arrow-size" : L"pg-end-arrow-size", L"1");
}

// The marker that an attribute such as url(#arrow-end-1) refers to.
pugi::xml_node MarkerOf(const ParsedSvg& svg, const pugi::xml_attribute& reference)
{
    std::string id = reference.value();
    if (id.size() < 6)
        return {};
    id = id.substr(5, id.size() - 6);
    return svg.Definitions().find_child_by_attribute("marker", "id", id.c_str());
}

} // namespace

TEST(Arrows, BothEndsGetMarkersThatExist)
{
    const HostDocument document;
    const QlmNode line = document.Line(0, 0, 10, 0);
    SetArrow(document, line, true, L"stealth arrow");
    SetArrow(document, line, false, L"stealth arrow");
    const ParsedSvg svg(document);
    const pugi::xml_node begin = MarkerOf(svg, svg.First("line").attribute("marker-start"));
    const pugi::xml_node end = MarkerOf(svg, svg.First("line").attribute("marker-end"));
    ASSERT_TRUE(begin);
    ASSERT_TRUE(end);
    EXPECT_STREQ(begin.attribute("id").value(), "arrow-begin-1");
    EXPECT_STREQ(end.attribute("id").value(), "arrow-end-1");
    EXPECT_STREQ(end.attribute("orient").value(), "auto");
    EXPECT_STREQ(end.attribute("markerUnits").value(), "userSpaceOnUse");
    EXPECT_EQ(std::string(end.child("path").attribute("d").value()).rfind("M0 0L-2 ", 0), 0u);
    EXPECT_EQ(std::string(begin.child("path").attribute("d").value()).rfind("M0 0L2 ", 0), 0u);
    EXPECT_STREQ(end.child("path").attribute("fill").value(), "#00ff00");
}

TEST(Arrows, OneEndLeavesTheOtherPlain)
{
    const HostDocument document;
    SetArrow(document, document.Line(0, 0, 10, 0), false, L"stealth arrow");
    const ParsedSvg svg(document);
    EXPECT_TRUE(svg.First("line").attribute("marker-end"));
    EXPECT_FALSE(svg.First("line").attribute("marker-start"));
}

TEST(Arrows, EveryColourHasItsOwnMarkerOnce)
{
    const HostDocument document;
    for (const wchar_t* colour : {L"#ff0000", L"#0000ff", L"#ff0000"}) {
        const QlmNode line = document.Line(0, 0, 10, 0);
        document.Set(line, L"stroke", colour);
        SetArrow(document, line, false, L"stealth arrow");
    }
    const ParsedSvg svg(document);
    const pugi::xml_node line = svg.First("line");
    const pugi::xml_node red = MarkerOf(svg, line.attribute("marker-end"));
    const pugi::xml_node blue = MarkerOf(svg, line.next_sibling().attribute("marker-end"));
    EXPECT_STREQ(red.child("path").attribute("fill").value(), "#ff0000");
    EXPECT_STREQ(blue.child("path").attribute("fill").value(), "#0000ff");
    EXPECT_EQ(MarkerOf(svg, line.next_sibling().next_sibling().attribute("marker-end")), red);
}

TEST(Arrows, OtherTypesDrawNoHead)
{
    const HostDocument document;
    SetArrow(document, document.Line(0, 0, 10, 0), false, L"none");
    const ParsedSvg svg(document);
    EXPECT_FALSE(svg.First("line").attribute("marker-end"));
    EXPECT_FALSE(svg.Definitions());
}

TEST(Arrows, WhatHasNoEndsHasNoHead)
{
    const HostDocument document;
    const QlmNode open[] = {document.Line(0, 0, 9, 0), document.Path(L"M 0,0 L 9,0"),
                            document.Polyline(L"0,0 9,0"), document.Polygon(L"0,0 9,0 9,9")};
    const QlmNode closed[] = {document.Circle(9, 0, 0), document.Ellipse(9, 5, 0, 0),
                              document.Text(0, 0, L"text"), document.Use(L"none", 0, 0)};
    for (const QlmNode node : open)
        SetArrow(document, node, false, L"stealth arrow");
    for (const QlmNode node : closed)
        SetArrow(document, node, false, L"stealth arrow");
    const ParsedSvg svg(document);
    for (const char* name : {"line", "path", "polyline", "polygon"})
        EXPECT_TRUE(svg.First(name).attribute("marker-end")) << name;
    for (const char* name : {"circle", "ellipse", "text", "use"})
        EXPECT_FALSE(svg.First(name).attribute("marker-end")) << name;
}

TEST(Arrows, SizeScalesTheHead)
{
    const HostDocument document;
    const QlmNode line = document.Line(0, 0, 10, 0);
    document.Set(line, L"pg-end-arrow-type", L"stealth arrow");
    document.Set(line, L"pg-end-arrow-size", L"5");
    const ParsedSvg svg(document);
    const pugi::xml_node end = MarkerOf(svg, svg.First("line").attribute("marker-end"));
    EXPECT_STREQ(end.child("path").attribute("d").value(), "M0 0L-10 3L-7 0L-10 -3Z");
    EXPECT_STREQ(end.attribute("markerWidth").value(), "10");
    EXPECT_STREQ(end.attribute("markerHeight").value(), "6");
}

TEST(Arrows, SizeThatIsNoSensibleNumberCountsAsOne)
{
    for (const wchar_t* size : {L"0", L"-1", L"nan", L"inf", L"big", L"1e30"}) {
        const HostDocument document;
        const QlmNode line = document.Line(0, 0, 10, 0);
        document.Set(line, L"pg-end-arrow-type", L"stealth arrow");
        document.Set(line, L"pg-end-arrow-size", size);
        const ParsedSvg svg(document);
        const pugi::xml_node end = MarkerOf(svg, svg.First("line").attribute("marker-end"));
        EXPECT_EQ(std::string(end.child("path").attribute("d").value()).rfind("M0 0L-2 ", 0), 0u);
    }
}

TEST(Arrows, TakeRoomInTheViewBoxAtEitherEnd)
{
    for (const bool isBegin : {true, false}) {
        const HostDocument document;
        const QlmNode line = document.Line(0, 0, 10, 0);
        SetArrow(document, line, isBegin, L"stealth arrow");
        document.Set(line, isBegin ? L"pg-begin-arrow-size" : L"pg-end-arrow-size", L"50");
        ExpectTight(ViewBoxOf(ParsedSvg(document)), -30, -30, 40, 30, 2);
    }
}
