#include "prepare/plain/AreaFiller.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace prepare {

namespace {

// Each new outline of an area is compared with so many before.
constexpr std::size_t kMostOutlines = 64;

} // namespace

void AreaFiller::Add(std::vector<Point2> outline, bool sharesEdge)
{
    if (outline.size() < 3)
        return;
    if (!std::all_of(outline.begin(), outline.end(), [](Point2 point) { return IsDrawable(point); }))
        return m_pen.Lose();
    const Box box = BoxOf(outline);
    const auto overlaps = [&](const Box& other) { return !box.IsApartFrom(other); };
    const std::size_t others = m_boxes.size() - (sharesEdge && !m_boxes.empty() ? 1 : 0);
    if (m_boxes.size() == kMostOutlines ||
        std::any_of(m_boxes.begin(), m_boxes.begin() + static_cast<std::ptrdiff_t>(others), overlaps))
        Fill();
    m_rings.push_back(std::move(outline));
    m_boxes.push_back(box);
}

void AreaFiller::Fill()
{
    if (!m_rings.empty())
        m_pen.Fill(m_rings);
    m_rings.clear();
    m_boxes.clear();
}

} // namespace prepare
