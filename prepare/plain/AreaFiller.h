// Fills many outlines as few areas.
#pragma once

#include "prepare/plain/Box.h"
#include "prepare/plain/Pen.h"

#include <vector>

namespace prepare {

// Collects outlines into areas. Under the even-odd rule those that overlap would leave a hole, so they go
// into different areas.
class AreaFiller {
public:
    explicit AreaFiller(Pen& pen) : m_pen(pen) {}

    // sharesEdge: the outline touches the one before in an edge, and does not overlap it.
    void Add(std::vector<Point2> outline, bool sharesEdge);
    // Fills what is collected. Call it last.
    void Fill();

private:
    Pen& m_pen;
    std::vector<std::vector<Point2>> m_rings;
    std::vector<Box> m_boxes;
};

} // namespace prepare
