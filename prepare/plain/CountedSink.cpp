#include "prepare/plain/CountedSink.h"

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

PlainSink& CountedSink::Count(PlainKind kind)
{
    ++m_counts[static_cast<std::size_t>(kind)];
    return m_next;
}

void CountedSink::Line(const Style& style, Point2 start, Point2 end)
{
    Count(PlainKind::Line).Line(style, start, end);
}

void CountedSink::Circle(const Style& style, Point2 centre, double radius)
{
    Count(PlainKind::Circle).Circle(style, centre, radius);
}

void CountedSink::Arc(const Style& style, Point2 centre, double radius, double start, double end)
{
    Count(PlainKind::Arc).Arc(style, centre, radius, start, end);
}

void CountedSink::Ellipse(const Style& style, Point2 centre, Point2 majorAxis, double ratio, double start,
                          double end)
{
    Count(PlainKind::Ellipse).Ellipse(style, centre, majorAxis, ratio, start, end);
}

void CountedSink::Polyline(const Style& style, std::span<const PlainVertex> vertices, bool isClosed)
{
    Count(PlainKind::Polyline).Polyline(style, vertices, isClosed);
}

void CountedSink::Text(const Style& style, const PlainText& text)
{
    Count(PlainKind::Text).Text(style, text);
}

void CountedSink::LineOfText(Point2 point, double spread, std::span<const PlainRun> runs)
{
    m_counts[static_cast<std::size_t>(PlainKind::Text)] += runs.size();
    m_next.LineOfText(point, spread, runs);
}

void CountedSink::Fill(const Style& style, std::span<const std::vector<Point2>> rings)
{
    Count(PlainKind::Area).Fill(style, rings);
}

void CountedSink::Mask(std::span<const std::vector<Point2>> rings)
{
    Count(PlainKind::Area).Mask(rings);
}

void CountedSink::Insert(std::size_t block, Point2 point, double rotation, bool isMirrored)
{
    Count(PlainKind::Insert).Insert(block, point, rotation, isMirrored);
}

} // namespace prepare
