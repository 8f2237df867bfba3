// What must be known of the whole picture before it is written.
#pragma once

#include "svghost/Arrows.h"
#include "svghost/Geometry.h"
#include "svghost/SvgHost.h"

namespace svghost {

// How many levels of uses a viewer must follow: deeper ones are left out. Viewers recurse for each.
inline constexpr std::uint32_t kDeepestUse = 100;

// How many elements a document of that many elements may unfold into when its uses are drawn: a picture of a
// few inserts within inserts must not grow beyond what a viewer shows in about two seconds, and a big
// ordinary drawing must stay whole.
constexpr std::size_t RenderBudget(std::size_t elements)
{
    return 300'000 + 16 * elements;
}

// How far uses within uses may shrink or enlarge: some viewers refuse a whole file for one transform that
// they cannot invert, such as a scale of 0.
inline constexpr double kSmallestScale = 1e-50;
inline constexpr double kLargestScale = 1e50;

struct ViewBox {
    double x = 0;
    double y = 0;
    double width = 100;
    double height = 100;
    bool isMadeUp = true; // nothing has a place that it could be taken from
};

// The margin on each side, as a part of the longer side of what is shown.
inline constexpr double kMargin = 0.02;

// The box with its margin; never without extent, also for a viewer's 32-bit floats.
ViewBox ViewBoxRound(const Box& box);

struct PictureLayout {
    ViewBox viewBox; // the widths of strokes taken as lengths
    ArrowLooks arrows;
    // Of strokes whose widths are those of a sheet: the widest one, and the greatest factor by which one is
    // shown wider than it should be, because its symbol is used at several scales.
    double widestStroke = 0;
    double greatestFactor = 1;
    SvgHostStatistics statistics{};
};

// Computes the view box from what is drawn, decides which nodes are left out (Node::isLeftOut) and counts
// what it meets. Takes time linear in the nodes, however far the drawing would unfold.
PictureLayout MakeLayout(SvgHostDocument& document);

} // namespace svghost
