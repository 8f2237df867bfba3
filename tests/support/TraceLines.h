// The lines of a trace, written out for a test to compare with.
#pragma once

#include <string>
#include <string_view>

// The call that sets an attribute of the node of that name ("n1", or "0").
inline std::string Attribute(std::string_view node, std::string_view name, std::string_view value)
{
    std::string line = "qlmSetAttributeByNode(ctx, ";
    return line.append(node).append(", \"").append(name).append("\", \"").append(value).append("\")\n");
}

// What an entity's style is when nothing is said about it.
struct StyleTexts {
    std::string_view width = "0.500000";
    std::string_view color = "RGB(255,255,255)";
    std::string_view dashes = "";
    bool hidden = false;
};

// The whole style sequence of a node.
inline std::string Style(std::string_view node, const StyleTexts& texts = {})
{
    return Attribute(node, "stroke-width", texts.width) + Attribute(node, "stroke", texts.color) +
           Attribute(node, "stroke-dasharray", texts.dashes) +
           (texts.hidden ? Attribute(node, "visibility", "hidden") : std::string());
}
