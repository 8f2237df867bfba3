#include "svghost/LayerGroups.h"

#include "svghost/LayerMarks.h"

#include <cstddef>
#include <map>

namespace svghost {

std::vector<LayerGroup> LayerGroupsOf(const SvgHostDocument& document, const Container& container)
{
    std::vector<LayerGroup> groups;
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

void SetLayer(XmlStream& out, std::string_view name)
{
    out.SetPlain("inkscape:groupmode", "layer");
    out.Set("inkscape:label", name);
}

void OpenLayer(XmlStream& out, std::wstring_view layer)
{
    out.Begin("g");
    SetLayer(out, XmlTextOf(layer));
    out.Set("data-layer", XmlTextOf(layer));
    out.Open();
}

} // namespace svghost
