// The elements of each layer as a group that Inkscape shows as a layer.
#pragma once

#include "svghost/SvgHostDocument.h"
#include "svghost/XmlStream.h"

#include <string_view>
#include <vector>

namespace svghost {

struct InkscapeLayer {
    std::wstring_view layer; // empty: of what is on none
    std::vector<const Node*> nodes;
};

// A container's elements by their layers, in the order in which these come first; those of each layer keep
// theirs.
std::vector<InkscapeLayer> InkscapeLayersOf(const SvgHostDocument& document, const Container& container);

// Sets what makes an element that has been begun a layer.
void SetInkscapeLayer(XmlStream& out, std::string_view name);

// Opens a group for a layer of the drawing.
void OpenInkscapeLayer(XmlStream& out, std::wstring_view layer);

} // namespace svghost
