// Counts what entities become.
#pragma once

#include "prepare/plain/Plain.h"

#include <array>
#include <cstdint>
#include <string>

namespace prepare {

// The kinds of plain entities.
enum class PlainKind : std::uint8_t { Line, Circle, Arc, Ellipse, Polyline, Text, Area, Insert };
inline constexpr std::size_t kPlainKinds = 8;

// How many there are of each kind.
using PlainCounts = std::array<std::uint64_t, kPlainKinds>;

// "2 lines, 1 polyline"; empty when nothing was counted.
std::string TextOf(const PlainCounts& counts);

// Passes everything on to another sink and counts it.
class CountingSink final : public PlainSink {
public:
    CountingSink(PlainSink& next, PlainCounts& counts) : m_next(next), m_counts(counts) {}

    void Line(const Style& style, Point2 start, Point2 end) override;
    void Circle(const Style& style, Point2 centre, double radius) override;
    void Arc(const Style& style, Point2 centre, double radius, double start, double end) override;
    void Ellipse(const Style& style, Point2 centre, Point2 majorAxis, double ratio, double start,
                 double end) override;
    void Polyline(const Style& style, std::span<const PlainVertex> vertices, bool isClosed) override;
    void Text(const Style& style, const PlainText& text) override;
    void LineOfText(Point2 point, double spread, std::span<const PlainRun> runs) override;
    void Fill(const Style& style, std::span<const std::vector<Point2>> rings) override;
    void Mask(std::span<const std::vector<Point2>> rings) override;
    void Insert(std::size_t block, Point2 point, double rotation, bool isMirrored) override;

private:
    PlainSink& Count(PlainKind kind);

    PlainSink& m_next;
    PlainCounts& m_counts;
};

} // namespace prepare
