#include "XmlCheck.h"

#include "FuzzInput.h"
#include "PictureForms.h"
#include "WellFormed.h"

#include <pugixml.hpp>

#include <map>
#include <set>
#include <string_view>

namespace {

using Names = std::set<std::string_view>;

// Attributes that any element may have, and those of one kind.
const Names kStyle = {"stroke",       "stroke-width", "stroke-dasharray", "stroke-linecap", "fill",
                      "fill-opacity", "fill-rule",    "visibility",       "font-size",      "text-anchor",
                      "marker-start", "marker-end",   "transform",        "class"};
using Element = std::pair<const std::string_view, Names>;
const std::map<std::string_view, Names> kElements = {
    {"svg", {"xmlns", "xmlns:xlink", "width", "height", "viewBox"}},
    {"style", {}},
    {"defs", {}},
    {"marker", {"id", "markerUnits", "orient", "overflow", "markerWidth", "markerHeight"}},
    {"symbol", {"id", "overflow"}},
    {"g", {"stroke-linejoin", "font-family"}},
    {"rect", {"x", "y", "width", "height"}},
    {"line", {"x1", "y1", "x2", "y2"}},
    {"circle", {"r", "cx", "cy"}},
    {"ellipse", {"rx", "ry", "cx", "cy"}},
    {"path", {"d", "style"}},
    {"polyline", {"points"}},
    {"polygon", {"points"}},
    {"text", {"x", "y", "xml:space", "textLength", "lengthAdjust"}},
    {"tspan", {"x", "y", "dx", "dy", "xml:space", "textLength", "lengthAdjust"}},
    {"use", {"xlink:href"}},
};
const Names kNumbers = {
    "x",         "y",          "x1", "y1",    "x2",     "y2",           "r",           "rx",
    "ry",        "cx",         "cy", "width", "height", "stroke-width", "markerWidth", "markerHeight",
    "font-size", "textLength", "dx", "dy"};
// Attributes whose value the one who draws may choose freely: it is quoted, and no viewer runs it.
constexpr std::string_view kDataPrefix = "data-";

void RequireNumber(std::string_view element, std::string_view name, const char* value)
{
    if (!kNumbers.contains(name))
        return;
    std::string_view digits = value;
    if (element == "svg" && digits.ends_with("mm"))
        digits.remove_suffix(2);
    if (!NumberOf(digits))
        FuzzFail("a number is one", name, value);
}

class Picture {
public:
    Picture(const pugi::xml_document& document, Backdrop backdrop) : m_backdrop(backdrop)
    {
        FuzzRequire(std::string_view(document.document_element().name()) == "svg",
                    "the root is an svg element");
        for (const pugi::xml_node& node : document.children())
            FuzzRequire(node.type() == pugi::node_declaration || node == document.document_element(),
                        "a file holds its declaration and the root");
        Visit(document.document_element(), 0);
    }

    void RequireReferences() const
    {
        for (const std::string& id : m_references)
            FuzzRequire(m_ids.contains(id), "what is referred to is there");
    }

    std::multiset<std::string> texts;

private:
    void Visit(const pugi::xml_node& element, int depth)
    {
        FuzzRequire(depth < 200, "elements are not nested too deeply");
        const auto known = kElements.find(element.name());
        if (known == kElements.end())
            FuzzFail("an element is a known one", "", element.name());
        for (const pugi::xml_attribute& attribute : element.attributes())
            VisitAttribute(*known, attribute, IsAny(element, depth));
        if (known->first == "text" || known->first == "tspan")
            texts.insert(element.child_value());
        if (known->first == "style")
            FuzzRequire(depth == 1 && (IsAny(element, depth) || !MayFetch(element.child_value())),
                        "a style sheet is the root's and fetches nothing");
        for (const pugi::xml_node& child : element.children()) {
            if (child.type() == pugi::node_element)
                Visit(child, depth + 1);
            else
                FuzzRequire(child.type() == pugi::node_pcdata, "an element holds elements and text");
        }
    }

    // Whether an element says what an application gave: its style sheet, or its background.
    bool IsAny(const pugi::xml_node& element, int depth) const
    {
        const std::string_view name = element.name();
        return m_backdrop == Backdrop::Any && depth == 1 && (name == "style" || name == "rect");
    }

    void VisitAttribute(const Element& element, const pugi::xml_attribute& attribute, bool isAny)
    {
        const std::string_view name = attribute.name();
        if (name.starts_with(kDataPrefix) && name.size() > kDataPrefix.size())
            return;
        if (!element.second.contains(name) && !kStyle.contains(name))
            FuzzFail("an attribute is a known one", "", name);
        RequireNumber(element.first, name, attribute.value());
        const std::string value = attribute.value();
        if (!HasFormOf(name, value))
            FuzzFail("a value has the form of its attribute", name, value);
        const bool isMarker = name == "marker-start" || name == "marker-end";
        // What hides other things has the background's colour in its style.
        const bool isBackdrop = isAny && name == "fill";
        const bool isMask = m_backdrop == Backdrop::Any && name == "style";
        if (!isMarker && !isBackdrop && !isMask && MayFetch(value))
            FuzzFail("nothing is fetched", name, value);
        if (name == "id")
            FuzzRequire(m_ids.insert(value).second, "an identifier is there once");
        if (name == "xlink:href")
            FuzzRequire(value.size() > 1 && value[0] == '#', "a use refers to the picture itself");
        if (isMarker) {
            FuzzRequire(value.starts_with("url(#") && value.ends_with(")"),
                        "a marker is one of the picture's");
            m_references.insert(value.substr(5, value.size() - 6));
        }
    }

    Backdrop m_backdrop;
    std::set<std::string> m_ids;
    std::set<std::string> m_references; // of those that must be there; a use's symbol may be missing
};

} // namespace

std::vector<std::string> RequirePicture(const std::string& svg, Backdrop backdrop)
{
    RequireWellFormed(svg);
    pugi::xml_document document;
    const unsigned options = pugi::parse_full | pugi::parse_ws_pcdata;
    FuzzRequire(document.load_buffer(svg.data(), svg.size(), options, pugi::encoding_utf8),
                "a picture is XML");
    const Picture picture(document, backdrop);
    picture.RequireReferences();
    return {picture.texts.begin(), picture.texts.end()};
}
