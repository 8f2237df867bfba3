#include "prepare/plain/CountingSink.h"

#include <string_view>

namespace prepare {

std::string TextOf(const PlainCounts& counts)
{
    constexpr std::string_view kOne[kPlainKinds] = {"line",     "circle", "arc",  "ellipse",
                                                    "polyline", "text",   "area", "insert"};
    constexpr std::string_view kMany[kPlainKinds] = {"lines",     "circles", "arcs",  "ellipses",
                                                     "polylines", "texts",   "areas", "inserts"};
    std::string text;
    for (std::size_t kind = 0; kind < kPlainKinds; ++kind)
        if (counts[kind] != 0)
            text.append(text.empty() ? "" : ", ")
                .append(std::to_string(counts[kind]))
                .append(" ")
                .append(counts[kind] == 1 ? kOne[kind] : kMany[kind]);
    return text;
}

PlainSink& CountingSink::Count(PlainKind kind)
{
    ++m_counts[static_cast<std::size_t>(kind)];
    return m_next;
}

void CountingSink::Line(const Style& style, Point2 start, Point2 end)
{
    Count(PlainKind::Line).Line(style, start, end);
}

void CountingSink::Circle(const Style& style, Point2 centre, double radius)
{
    Count(PlainKind::Circle).Circle(style, centre, radius);
}

void CountingSink::Arc(const Style& style, Point2 centre, double radius, double start, double end)
{
    Count(PlainKind::Arc).Arc(style, centre, radius, start, end);
}

void CountingSink::Ellipse(const Style& style, Point2 centre, Point2 majorAxis, double ratio, double start,
                           double end)
{
    Count(PlainKind::Ellipse).Ellipse(style, centre, majorAxis, ratio, start, end);
}

void CountingSink::Polyline(const Style& style, std::span<const PlainVertex> vertices, bool isClosed)
{
    Count(PlainKind::Polyline).Polyline(style, vertices, isClosed);
}

void CountingSink::Text(const Style& style, const PlainText& text)
{
    Count(PlainKind::Text).Text(style, text);
}

void CountingSink::LineOfText(Point2 point, double spread, std::span<const PlainRun> runs)
{
    m_counts[static_cast<std::size_t>(PlainKind::Text)] += runs.size();
    m_next.LineOfText(point, spread, runs);
}

void CountingSink::Fill(const Style& style, std::span<const std::vector<Point2>> rings)
{
    Count(PlainKind::Area).Fill(style, rings);
}

void CountingSink::Mask(std::span<const std::vector<Point2>> rings)
{
    Count(PlainKind::Area).Mask(rings);
}

void CountingSink::Insert(std::size_t block, Point2 point, double rotation, bool isMirrored)
{
    Count(PlainKind::Insert).Insert(block, point, rotation, isMirrored);
}

} // namespace prepare
