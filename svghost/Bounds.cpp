#include "svghost/Bounds.h"

#include "svghost/Document.h"
#include "svghost/NumberText.h"
#include "svghost/PathData.h"

#include <algorithm>
#include <cmath>

namespace svghost {
namespace {

bool hasDrawableTransform(const Node& node)
{
    for (const AttributeId id : {AttributeId::Rotate, AttributeId::CenterX, AttributeId::CenterY,
                                 AttributeId::ScaleX, AttributeId::ScaleY}) {
        if (!isDrawable(node.number(id, 0)))
            return false;
    }
    return true;
}

// A shape as it stands, or its path under a rotation. A rotated polyline has the box round its rotated box.
Box shapeBounds(const Shape& shape)
{
    if (!shape.find(AttributeId::Rotate))
        return shape.box;
    Box box;
    if (shape.kind == Kind::Path) {
        std::string unused;
        scanPath(shape.data.data(), transformOf(shape), unused, box);
    } else {
        box.add(shape.box, transformOf(shape));
    }
    return box;
}

double widthInEms(const Text& text)
{
    constexpr double kCharacterWidth = 0.6;
    return text.characters * kCharacterWidth;
}

Box textBounds(const SvgHostDocument& document, const Text& text)
{
    const double size = std::fabs(text.number(AttributeId::FontSize, kDefaultFontSize));
    const double width = widthInEms(text) * size;
    double left = 0;
    if (const ExtraAttribute* anchor = text.find(AttributeId::TextAnchor)) {
        const std::string_view word = document.value(AttributeId::TextAnchor, anchor->value).text;
        left = word == "middle" ? -width / 2 : word == "end" ? -width : 0;
    }
    Box upright;
    upright.add({text.x + left, text.y - 0.9 * size});
    upright.add({text.x + left + width, text.y + 0.25 * size});
    Box box;
    box.add(upright, transformOf(text));
    return box;
}

// What the outline reaches beyond the geometry, arrow heads included; joins are round, ends at most.
double outlineReach(const SvgHostDocument& document, const Node& node)
{
    double width = 1;
    if (node.strokeWidth) {
        const Value& value = document.value(AttributeId::StrokeWidth, node.strokeWidth);
        width = value.dropped ? 1 : value.number;
    }
    const double arrow =
        std::max(arrowSize(document, node, ArrowEnd::Begin), arrowSize(document, node, ArrowEnd::End));
    return std::max(width / 2, arrow * kArrowHalfWidth);
}

Box geometryBounds(const Node& node)
{
    Box box;
    if (node.kind == Kind::Line) {
        const auto& line = static_cast<const Line&>(node);
        const Affine map = transformOf(node);
        box.add(map({line.x1, line.y1}));
        box.add(map({line.x2, line.y2}));
    } else if (node.kind == Kind::Circle || node.kind == Kind::Ellipse) {
        const auto& ellipse = static_cast<const Ellipse&>(node);
        addEllipse(box, {ellipse.centerX, ellipse.centerY}, ellipse.radiusX, ellipse.radiusY,
                   transformOf(node));
    } else {
        box = shapeBounds(static_cast<const Shape&>(node));
    }
    return box;
}

} // namespace

bool isDrawable(const Node& node)
{
    // A container is written with neither geometry nor transform.
    if (isContainer(node))
        return true;
    if (node.malformed || (node.extra && !hasDrawableTransform(node)))
        return false;
    switch (node.kind) {
    case Kind::Line: {
        const auto& line = static_cast<const Line&>(node);
        return isDrawable(line.x1) && isDrawable(line.y1) && isDrawable(line.x2) && isDrawable(line.y2);
    }
    case Kind::Circle:
    case Kind::Ellipse: {
        const auto& ellipse = static_cast<const Ellipse&>(node);
        return isDrawable(ellipse.radiusX) && isDrawable(ellipse.radiusY) && isDrawable(ellipse.centerX) &&
               isDrawable(ellipse.centerY);
    }
    case Kind::Text:
        return isDrawable(static_cast<const Text&>(node).x) && isDrawable(static_cast<const Text&>(node).y);
    case Kind::Use:
        return isDrawable(static_cast<const Use&>(node).x) && isDrawable(static_cast<const Use&>(node).y);
    default:
        return true;
    }
}

Box boundsOf(const SvgHostDocument& document, const Node& node)
{
    if (isContainer(node))
        return {};
    if (node.kind == Kind::Text)
        return textBounds(document, static_cast<const Text&>(node));
    if (node.kind != Kind::Use)
        return geometryBounds(node).grown(outlineReach(document, node));
    Box box;
    if (const Symbol* target = static_cast<const Use&>(node).target->definition)
        box.add(target->box, transformOf(node));
    return box;
}

Affine transformOf(const Node& node)
{
    if (node.kind == Kind::Use) {
        const auto& use = static_cast<const Use&>(node);
        return placement({use.x, use.y}, node.number(AttributeId::Rotate, 0),
                         node.number(AttributeId::ScaleX, 1), node.number(AttributeId::ScaleY, 1));
    }
    const double degrees = node.number(AttributeId::Rotate, 0);
    if (degrees == 0)
        return {};
    if (node.kind == Kind::Text)
        return rotationAbout(degrees, {static_cast<const Text&>(node).x, static_cast<const Text&>(node).y});
    return rotationAbout(degrees,
                         {node.number(AttributeId::CenterX, 0), node.number(AttributeId::CenterY, 0)});
}

} // namespace svghost
