// Cuts plain entities along a polygon.
#pragma once

#include "prepare/plain/ClipRegion.h"
#include "prepare/plain/Plain.h"

namespace prepare {

// A polyline's points, with its bulges flattened. There is at least one vertex.
std::vector<Point2> PointsOf(std::span<const PlainVertex> vertices, bool isClosed, double tolerance);

// Passes on what is inside a region. Curves across its edge become polylines; a text is shown if its middle
// is inside. Takes no inserts: what is cut must be drawn in its place.
class ClipSink final : public PlainSink {
public:
    // All must outlive this. tolerance: of flattened curves. outer: what the next sink cuts off, where it is
    // known; else null.
    ClipSink(const ClipRegion& region, double tolerance, PlainSink& next, const ClipSink* outer = nullptr)
        : m_region(region), m_tolerance(CutTolerance(region, tolerance)), m_next(next), m_outer(outer)
    {
    }

    // Where a box is, as this and all outer ones see it; and the sink for what is inside of them all.
    ClipSide SideOf(const Box& box) const;
    PlainSink& Uncut() const { return m_outer != nullptr ? m_outer->Uncut() : m_next; }

    void Line(const Style& style, Point2 start, Point2 end) override;
    void Circle(const Style& style, Point2 centre, double radius) override;
    void Arc(const Style& style, Point2 centre, double radius, double start, double end) override;
    void Ellipse(const Style& style, Point2 centre, Point2 majorAxis, double ratio, double start,
                 double end) override;
    void Polyline(const Style& style, std::span<const PlainVertex> vertices, bool isClosed) override;
    void Text(const Style& style, const PlainText& text) override;
    void LineOfText(Point2 point, std::span<const PlainRun> runs) override;
    void Fill(const Style& style, std::span<const std::vector<Point2>> rings) override;
    void Mask(std::span<const std::vector<Point2>> rings) override;
    void Insert(std::size_t, Point2, double, bool) override {}

private:
    static double CutTolerance(const ClipRegion& region, double tolerance);
    bool Shows(const PlainText& text) const;
    ClipSide SideOfCircle(Point2 centre, double radius) const;
    void Curve(const Style& style, Point2 centre, Point2 u, Point2 v, double start, double end);
    void Cut(const Style& style, const std::vector<Point2>& points);
    template <class Take>
    void CutArea(std::span<const std::vector<Point2>> rings, const Take& take);
    void Give(const Style& style, std::vector<PlainVertex>& run);

    const ClipRegion& m_region;
    const double m_tolerance;
    PlainSink& m_next;
    const ClipSink* m_outer;
};

} // namespace prepare
