#include "svghost/InkscapeLayers.h"

#include "svghost/LayerMarks.h"

#include <cstddef>
#include <map>

namespace svghost {

std::vector<InkscapeLayer> InkscapeLayersOf(const SvgHostDocument& document, const Container& container)
{
    std::vector<InkscapeLayer> groups;
    std::map<std::wstring_view, std::size_t> numbers;
    std::wstring_view layer;
    for (const Node* node = container.first; node; node = node->next) {
        if (const Symbol* mark = document.MarkAt(*node))
            layer = LayerOf(*mark);
        if (LayerMarkOf(*node))
            continue;
        const auto [place, isNew] = numbers.try_emplace(layer, groups.size());
        if (isNew)
            groups.push_back({layer, {}});
        groups[place->second].nodes.push_back(node);
    }
    return groups;
}

void SetInkscapeLayer(XmlStream& out, std::string_view name)
{
    out.SetPlain("inkscape:groupmode", "layer");
    out.Set("inkscape:label", name);
}

void OpenInkscapeLayer(XmlStream& out, std::wstring_view layer)
{
    out.Begin("g");
    SetInkscapeLayer(out, XmlTextOf(layer));
    out.Set("data-layer", XmlTextOf(layer));
    out.Open();
}

} // namespace svghost
