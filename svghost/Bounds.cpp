#include "svghost/Bounds.h"

#include "svghost/DrawableNumbers.h"
#include "svghost/PathData.h"
#include "svghost/SvgHostDocument.h"

#include <algorithm>
#include <cmath>

namespace svghost {

namespace {

bool HasDrawableTransform(const Node& node)
{
    for (const AttributeId id : {AttributeId::Rotate, AttributeId::CenterX, AttributeId::CenterY,
                                 AttributeId::ScaleX, AttributeId::ScaleY}) {
        if (!IsDrawable(node.Number(id, 0)))
            return false;
    }
    return true;
}

// A shape as it is, or its path under a rotation. A rotated polyline has the box round its rotated box.
Box ShapeBounds(const Shape& shape)
{
    if (!shape.Find(AttributeId::Rotate))
        return shape.box;
    Box box;
    if (shape.kind == Kind::Path) {
        PathText text;
        ShortForm unused;
        text.Set(shape.data);
        ScanPath(text, TransformOf(shape), unused, box);
    } else {
        box.Add(shape.box, TransformOf(shape));
    }
    return box;
}

double WidthInEms(const Text& text)
{
    constexpr double kCharacterWidth = 0.6;
    return text.characters * kCharacterWidth + text.ideographs * (1 - kCharacterWidth);
}

Box TextBounds(const SvgHostDocument& document, const Text& text)
{
    const double size = std::fabs(text.Number(AttributeId::FontSize, kDefaultFontSize));
    const double width = WidthInEms(text) * size;
    double left = 0;
    if (const ExtraAttribute* anchor = text.Find(AttributeId::TextAnchor)) {
        const std::string_view word = document.ValueOf(AttributeId::TextAnchor, anchor->value).text;
        left = word == "middle" ? -width / 2 : word == "end" ? -width : 0;
    }
    Box upright;
    upright.Add({text.x + left, text.y - 0.9 * size});
    upright.Add({text.x + left + width, text.y + 0.25 * size});
    Box box;
    box.Add(upright, TransformOf(text));
    return box;
}

double WidthOf(const SvgHostDocument& document, const Node& node)
{
    if (node.strokeWidth == 0)
        return kDefaultStrokeWidth;
    const Value& value = document.ValueOf(AttributeId::StrokeWidth, node.strokeWidth);
    return value.isDropped ? kDefaultStrokeWidth : value.number;
}

// What arrow heads reach beyond the geometry.
double ArrowReach(const SvgHostDocument& document, const Node& node)
{
    const double arrow =
        std::max(ArrowSize(document, node, ArrowEnd::Begin), ArrowSize(document, node, ArrowEnd::End));
    return arrow * kArrowHalfWidth;
}

Box GeometryBounds(const Node& node)
{
    Box box;
    if (node.kind == Kind::Line) {
        const auto& line = static_cast<const Line&>(node);
        const Affine map = TransformOf(node);
        box.Add(map({line.x1, line.y1}));
        box.Add(map({line.x2, line.y2}));
    } else if (node.kind == Kind::Circle || node.kind == Kind::Ellipse) {
        const auto& ellipse = static_cast<const Ellipse&>(node);
        AddEllipse(box, {ellipse.centerX, ellipse.centerY}, ellipse.radiusX, ellipse.radiusY,
                   TransformOf(node));
    } else {
        box = ShapeBounds(static_cast<const Shape&>(node));
    }
    return box;
}

} // namespace

bool IsDrawable(const Node& node)
{
    // A container is written with neither geometry nor transform.
    if (IsContainer(node))
        return true;
    if (node.isMalformed || (node.extra && !HasDrawableTransform(node)))
        return false;
    switch (node.kind) {
    case Kind::Line: {
        const auto& line = static_cast<const Line&>(node);
        return IsDrawable(line.x1) && IsDrawable(line.y1) && IsDrawable(line.x2) && IsDrawable(line.y2);
    }
    case Kind::Circle:
    case Kind::Ellipse: {
        const auto& ellipse = static_cast<const Ellipse&>(node);
        return IsDrawable(ellipse.radiusX) && IsDrawable(ellipse.radiusY) && IsDrawable(ellipse.centerX) &&
               IsDrawable(ellipse.centerY);
    }
    case Kind::Text:
        return IsDrawable(static_cast<const Text&>(node).x) && IsDrawable(static_cast<const Text&>(node).y);
    case Kind::Use:
        return IsDrawable(static_cast<const Use&>(node).x) && IsDrawable(static_cast<const Use&>(node).y);
    default:
        return true;
    }
}

namespace {

// Joins of strokes are round, ends at most.
Extent StrokedExtent(const SvgHostDocument& document, const Node& node)
{
    const Box geometry = GeometryBounds(node);
    const double width = WidthOf(document, node);
    const double arrow = node.extra ? ArrowReach(document, node) : 0;
    return {geometry.Grown(std::max(width / 2, arrow)), arrow > 0 ? geometry.Grown(arrow) : geometry, width};
}

Extent UseExtent(const Use& use)
{
    Extent extent;
    if (const Symbol* target = use.target->definition) {
        const Affine map = TransformOf(use);
        extent.box.Add(target->box, map);
        extent.bare.Add(target->bare, map);
    }
    return extent;
}

} // namespace

Extent ExtentOf(const SvgHostDocument& document, const Node& node)
{
    if (IsContainer(node))
        return {};
    if (node.kind == Kind::Use)
        return UseExtent(static_cast<const Use&>(node));
    if (node.kind != Kind::Text)
        return StrokedExtent(document, node);
    const Box box = TextBounds(document, static_cast<const Text&>(node));
    return {box, box, 0};
}

bool ShowsSomething(const Node& node, const Box& box)
{
    if (box.IsEmpty())
        return false;
    switch (node.kind) {
    case Kind::Circle:
    case Kind::Ellipse: {
        const auto& ellipse = static_cast<const Ellipse&>(node);
        return ellipse.radiusX != 0 && ellipse.radiusY != 0;
    }
    case Kind::Text:
        return node.Number(AttributeId::FontSize, kDefaultFontSize) != 0 &&
               static_cast<const Text&>(node).text.find_first_not_of(" \t\n\r") != std::string_view::npos;
    case Kind::Use: {
        const Symbol* target = static_cast<const Use&>(node).target->definition;
        return target && target->visible > 0;
    }
    default:
        return true;
    }
}

Affine TransformOf(const Node& node)
{
    if (node.kind == Kind::Use) {
        const auto& use = static_cast<const Use&>(node);
        return Placement({use.x, use.y}, node.Number(AttributeId::Rotate, 0),
                         node.Number(AttributeId::ScaleX, 1), node.Number(AttributeId::ScaleY, 1));
    }
    const double degrees = node.Number(AttributeId::Rotate, 0);
    if (degrees == 0)
        return {};
    if (node.kind == Kind::Text)
        return RotationAbout(degrees, {static_cast<const Text&>(node).x, static_cast<const Text&>(node).y});
    return RotationAbout(degrees,
                         {node.Number(AttributeId::CenterX, 0), node.Number(AttributeId::CenterY, 0)});
}

} // namespace svghost
