// Cuts plain entities along a polygon.
#pragma once

#include "prepare/plain/Budget.h"
#include "prepare/plain/ClipRegion.h"
#include "prepare/plain/Plain.h"

namespace prepare {

// A polyline's points, with its bulges flattened as finely as curves allow. There is at least one vertex.
// coarsest: the tolerance while there is room, as Fineness has it.
std::vector<Point2> PointsOf(std::span<const PlainVertex> vertices, bool isClosed, Fineness& curves,
                             double coarsest = HUGE_VAL);

// Passes on what is inside a region. Curves across its edge become polylines; a text is shown if its middle
// is inside. A cut makes pieces, and leaves out those for which the drawing has no room. Takes no inserts:
// what is cut must be drawn in its place.
class ClipSink final : public PlainSink {
public:
    // All must outlive this. outer: what the next sink cuts off, where it is known; else null.
    ClipSink(const ClipRegion& region, Budget& budget, PlainSink& next, const ClipSink* outer = nullptr)
        : m_region(region), m_coarsest(Coarsest(region)), m_budget(budget), m_next(next), m_outer(outer)
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
    void LineOfText(Point2 point, double spread, std::span<const PlainRun> runs) override;
    void Fill(const Style& style, std::span<const std::vector<Point2>> rings) override;
    void Mask(std::span<const std::vector<Point2>> rings) override;
    void Insert(std::size_t, Point2, double, bool) override {}

private:
    static double Coarsest(const ClipRegion& region);
    bool Shows(const PlainText& text) const;
    ClipSide SideOfCircle(Point2 centre, double radius) const;
    void Curve(const Style& style, Point2 centre, Point2 u, Point2 v, double start, double end);
    void Cut(const Style& style, const std::vector<Point2>& points);
    template <class Take>
    void CutArea(std::span<const std::vector<Point2>> rings, const Take& take);
    void Give(const Style& style, std::vector<PlainVertex>& run);

    const ClipRegion& m_region;
    const double m_coarsest;
    Budget& m_budget;
    PlainSink& m_next;
    const ClipSink* m_outer;
};

} // namespace prepare
