#include "support/RecordingSink.h"

#include <cmath>
#include <cstdio>

namespace prepare {

namespace {

std::string Number(double value)
{
    constexpr double kNothing = 1e-9; // what is left of a difference that should be 0
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", std::fabs(value) < kNothing ? 0.0 : value);
    return text;
}

std::string At(Point2 point)
{
    return Number(point.x) + "," + Number(point.y);
}

const char* Word(Anchor anchor)
{
    return anchor == Anchor::Start ? "start" : anchor == Anchor::Middle ? "middle" : "end";
}

std::string ColourOf(const Colour& colour)
{
    char text[32] = "";
    if (colour.isTrue)
        std::snprintf(text, sizeof text, " rgb %06x", static_cast<unsigned>(colour.rgb));
    else if (colour.index != 7)
        std::snprintf(text, sizeof text, " colour %d", static_cast<int>(colour.index));
    return text;
}

std::string DashesOf(const LineType* lineType)
{
    if (lineType == nullptr || lineType->name != kNoName)
        return "";
    std::string text = " dashes";
    for (const double dash : lineType->dashes)
        text += " " + Number(dash);
    return text;
}

} // namespace

void RecordingSink::Add(const Style& style, std::string line)
{
    line += ColourOf(style.colour);
    if (style.width != 0)
        line += " width " + Number(style.width);
    line += DashesOf(style.lineType);
    lines.push_back(std::move(line));
}

void RecordingSink::Line(const Style& style, Point2 start, Point2 end)
{
    Add(style, "line " + At(start) + " " + At(end));
}

void RecordingSink::Circle(const Style& style, Point2 centre, double radius)
{
    Add(style, "circle " + At(centre) + " radius " + Number(radius));
}

void RecordingSink::Arc(const Style& style, Point2 centre, double radius, double start, double end)
{
    Add(style,
        "arc " + At(centre) + " radius " + Number(radius) + " from " + Number(start) + " to " + Number(end));
}

void RecordingSink::Ellipse(const Style& style, Point2 centre, Point2 majorAxis, double ratio, double start,
                            double end)
{
    Add(style, "ellipse " + At(centre) + " axis " + At(majorAxis) + " ratio " + Number(ratio) + " from " +
                   Number(start) + " to " + Number(end));
}

void RecordingSink::Polyline(const Style& style, std::span<const PlainVertex> vertices, bool isClosed)
{
    std::string line = isClosed ? "closed polyline" : "polyline";
    for (const PlainVertex& vertex : vertices) {
        line += " " + At(vertex.point);
        if (vertex.bulge != 0)
            line += " bulge " + Number(vertex.bulge);
    }
    Add(style, std::move(line));
}

void RecordingSink::Text(const Style& style, const PlainText& text)
{
    Add(style, "text '" + text.text + "' at " + At(text.point) + " along " + At(text.along) + " up " +
                   At(text.up) + " " + Word(text.anchor));
}

namespace {

std::string AreaOf(std::string line, std::span<const std::vector<Point2>> rings)
{
    for (const std::vector<Point2>& ring : rings) {
        line += &ring == rings.data() ? "" : " and";
        for (const Point2 point : ring)
            line += " " + At(point);
    }
    return line;
}

} // namespace

void RecordingSink::Fill(const Style& style, std::span<const std::vector<Point2>> rings)
{
    Add(style, AreaOf("fill", rings));
}

void RecordingSink::Mask(std::span<const std::vector<Point2>> rings)
{
    lines.push_back(AreaOf("mask", rings));
}

void RecordingSink::Insert(std::size_t block, Point2 point, double rotation, bool isMirrored)
{
    lines.push_back("insert " + std::to_string(block) + " at " + At(point) + " turned " + Number(rotation) +
                    (isMirrored ? " mirrored" : ""));
}

} // namespace prepare
