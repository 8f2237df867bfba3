// An entity as the polygon that it runs round.
#pragma once

#include "prepare/plain/Fineness.h"
#include "prepare/plain/Plain.h"

#include <vector>

namespace prepare {

// Keeps the points of the first curve that it is given.
class ViewportOutline final : public PlainOutput, private PlainSink {
public:
    // Of flattened curves, as Fineness has them.
    ViewportOutline(double tolerance, std::uint64_t sparePoints) : m_curves(tolerance, sparePoints) {}

    PlainSink& Model() override { return *this; }
    std::size_t NewBlock(std::string_view) override { return 0; }
    PlainSink& Block(std::size_t) override { return *this; }

    const std::vector<Point2>& Outline() const { return m_outline; }

private:
    void Line(const Style&, Point2, Point2) override {}
    void Circle(const Style& style, Point2 centre, double radius) override;
    void Arc(const Style& style, Point2 centre, double radius, double start, double end) override;
    void Ellipse(const Style& style, Point2 centre, Point2 majorAxis, double ratio, double start,
                 double end) override;
    void Polyline(const Style& style, std::span<const PlainVertex> vertices, bool isClosed) override;
    void Text(const Style&, const PlainText&) override {}
    void Insert(std::size_t, Point2, double, bool) override {}

    Fineness m_curves;
    std::vector<Point2> m_outline;
};

} // namespace prepare
