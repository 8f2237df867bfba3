// Notes what there is to see of an entity.
#pragma once

#include "prepare/plain/Plain.h"

namespace prepare {

// Passes everything on to another sink and notes whether any of it has a size.
class VisibilitySink final : public PlainSink {
public:
    explicit VisibilitySink(PlainSink& next) : m_next(next) {}

    // Whether something came that has a size, or an insert.
    bool HasSize() const { return m_isVisible || m_hasOther; }
    // The same without inserts, and without what only hides.
    bool IsVisible() const { return m_isVisible; }

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
    void See(bool isSeen) { m_isVisible = m_isVisible || isSeen; }

    PlainSink& m_next;
    bool m_isVisible = false;
    bool m_hasOther = false;
};

} // namespace prepare
