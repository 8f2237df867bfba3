// Takes plain entities as lines of text, one each, for tests to compare.
#pragma once

#include "prepare/plain/Plain.h"

#include <string>
#include <vector>

namespace prepare {

// "line 0,0 10,5.5", "text 'A' at 0,0 along 2.5,0 up 0,2.5 start". Numbers have six digits at most. A colour
// that is not 7 is at the end: "colour 3", "rgb ff0000"; then a width: "width 2"; then a line type that has
// no name: "dashes 2 -1".
class RecordingSink : public PlainSink {
public:
    std::vector<std::string> lines;

    void Line(const Style& style, Point2 start, Point2 end) override;
    void Circle(const Style& style, Point2 centre, double radius) override;
    void Arc(const Style& style, Point2 centre, double radius, double start, double end) override;
    void Ellipse(const Style& style, Point2 centre, Point2 majorAxis, double ratio, double start,
                 double end) override;
    void Polyline(const Style& style, std::span<const PlainVertex> vertices, bool isClosed) override;
    void Text(const Style& style, const PlainText& text) override;
    void Fill(const Style& style, std::span<const std::vector<Point2>> rings) override;
    void Mask(std::span<const std::vector<Point2>> rings) override;
    void Insert(std::size_t block, Point2 point, double rotation, bool isMirrored) override;

private:
    void Add(const Style& style, std::string line);
};

} // namespace prepare
