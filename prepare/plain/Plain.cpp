#include "prepare/plain/Plain.h"

namespace prepare {

void PlainSink::LineOfText(Point2, double, std::span<const PlainRun> runs)
{
    for (const PlainRun& run : runs)
        Text(run.style, run.text);
}

void PlainSink::Fill(const Style& style, std::span<const std::vector<Point2>> rings)
{
    std::vector<PlainVertex> outline;
    for (const std::vector<Point2>& ring : rings) {
        outline.clear();
        for (const Point2& point : ring)
            outline.push_back({point, 0});
        Polyline(style, outline, true);
    }
}

void PlainSink::Mask(std::span<const std::vector<Point2>>) {}

} // namespace prepare
