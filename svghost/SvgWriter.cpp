#include "svghost/SvgWriter.h"

#include "svghost/NumberText.h"
#include "svghost/XmlText.h"

#include <algorithm>
#include <cmath>

namespace svghost {
namespace {

// The larger side of the picture, in pixels, where the viewer does not fit it into something.
constexpr double kPixels = 1024;

// Elements without a colour of their own, which are those of dimensions, get that of a dimension's text: it
// is seen on black and on white.
constexpr std::string_view kDefaultColour = "#00ff00";

// Only the first symbol of a name is referred to; the prefixes keep all identifiers apart.
void appendSymbolId(std::string& out, const SymbolName& name, std::size_t definition)
{
    if (definition == 1) {
        out += "s-";
    } else {
        out += 'd';
        out += std::to_string(definition);
        out += '-';
    }
    appendXmlName(out, name.name);
}

const char* elementName(Kind kind)
{
    switch (kind) {
    case Kind::Path:
        return "path";
    case Kind::Polyline:
        return "polyline";
    default:
        return "polygon";
    }
}

void appendPart(std::string& out, std::string_view text)
{
    out += text;
}

void appendPart(std::string& out, float number)
{
    appendNumber(out, number);
}

void appendPart(std::string& out, double number)
{
    appendNumber(out, number);
}

} // namespace

SvgWriter::SvgWriter(const SvgHostDocument& document, const Layout& layout, SvgHostWriteFunction write,
                     void* user)
    : m_document(document), m_layout(layout), m_out(write, user)
{
}

bool SvgWriter::run(const SvgHostWriteOptions& options)
{
    m_out.addDeclaration();
    openRoot(options.unit);
    if (options.style)
        writeStyle(options.style);
    writeDefinitions();
    if (options.background)
        writeBackground(options.background);
    openDrawing();
    writeContents(m_document.root);
    m_out.close();
    m_out.close();
    return m_out.finish();
}

void SvgWriter::openRoot(double unit)
{
    const ViewBox& box = m_layout.viewBox;
    begin("svg");
    set("xmlns", "http://www.w3.org/2000/svg");
    set("xmlns:xlink", "http://www.w3.org/1999/xlink");
    if (!setPhysicalSize(unit))
        setPixelSize();
    // The margin is far wider than the rounding to 32 bits.
    setJoined("viewBox", static_cast<float>(box.x), " ", static_cast<float>(box.y), " ",
              static_cast<float>(box.width), " ", static_cast<float>(box.height));
    m_out.open(m_element);
}

void SvgWriter::setPixelSize()
{
    const ViewBox& box = m_layout.viewBox;
    const double scale = kPixels / std::max(box.width, box.height);
    const auto pixels = [&](double side) { return std::max(1.0, std::round(side * scale)); };
    setJoined("width", pixels(box.width));
    setJoined("height", pixels(box.height));
}

// False, with nothing set, when there is no unit, nothing to measure, or a side that no viewer can hold.
bool SvgWriter::setPhysicalSize(double unit)
{
    const double width = m_layout.viewBox.width * unit;
    const double height = m_layout.viewBox.height * unit;
    // Numbers smaller than a float are not drawable either, and would be written as 0.
    const auto isSide = [](double side) { return isDrawable(side) && static_cast<float>(side) > 0; };
    if (m_layout.viewBox.isMadeUp || !isSide(width) || !isSide(height))
        return false;
    setJoined("width", static_cast<float>(width), "mm");
    setJoined("height", static_cast<float>(height), "mm");
    return true;
}

void SvgWriter::writeStyle(const char* style)
{
    begin("style");
    m_out.addText(m_element, validUtf8(style));
}

// The module fills nothing, while SVG would fill everything.
void SvgWriter::openDrawing()
{
    begin("g");
    set("fill", "none");
    set("stroke", kDefaultColour);
    set("stroke-linejoin", "round");
    set("font-family", "sans-serif");
    m_out.open(m_element);
}

void SvgWriter::writeDefinitions()
{
    if (m_layout.arrows.empty() && m_document.symbols.empty())
        return;
    begin("defs");
    m_out.open(m_element);
    for (const auto& [look, number] : m_layout.arrows) {
        writeArrow("begin", -1, look.first, look.second, number);
        writeArrow("end", 1, look.first, look.second, number);
    }
    for (const Symbol* symbol : m_document.symbols)
        writeSymbol(*symbol);
    m_out.close();
}

// One marker for each end: not every viewer turns a marker round by itself.
void SvgWriter::writeArrow(const char* end, double direction, std::uint32_t stroke, double size,
                           std::size_t number)
{
    const double length = kArrowLength * size * direction;
    const double halfWidth = kArrowHalfWidth * size;
    begin("marker");
    setJoined("id", "arrow-", end, "-", static_cast<double>(number));
    set("markerUnits", "userSpaceOnUse");
    set("orient", "auto");
    set("overflow", "visible");
    setJoined("markerWidth", kArrowLength * size);
    setJoined("markerHeight", 2 * halfWidth);
    m_element = m_out.addChild(m_element, "path");
    setJoined("d", "M0 0L", -length, " ", halfWidth, "L", -length * 0.7, " 0L", -length, " ", -halfWidth,
              "Z");
    set("stroke", "none");
    set("fill", strokeColour(stroke));
}

void SvgWriter::writeSymbol(const Symbol& symbol)
{
    begin("symbol");
    m_value.clear();
    appendSymbolId(m_value, *symbol.name, symbol.definition);
    set("id", m_value);
    set("data-name", utf8Of(symbol.name->name));
    set("overflow", "visible");
    setStyle(symbol);
    m_out.open(m_element);
    writeContents(symbol);
    m_out.close();
}

// The rectangle reaches beyond the view box, whose sides seldom have the ratio of whole pixels.
void SvgWriter::writeBackground(const char* colour)
{
    const ViewBox& box = m_layout.viewBox;
    begin("rect");
    setJoined("x", static_cast<float>(box.x - box.width / 2));
    setJoined("y", static_cast<float>(box.y - box.height / 2));
    setJoined("width", static_cast<float>(box.width * 2));
    setJoined("height", static_cast<float>(box.height * 2));
    set("fill", validUtf8(colour));
}

void SvgWriter::writeContents(const Container& container)
{
    walk(
        container, [this](const Node& node) { writeNode(node); },
        [this](const Container&) { m_out.close(); });
}

void SvgWriter::writeNode(const Node& node)
{
    if (node.leftOut)
        return;
    switch (node.kind) {
    case Kind::Line:
        return writeLine(static_cast<const Line&>(node));
    case Kind::Circle:
    case Kind::Ellipse:
        return writeEllipse(static_cast<const Ellipse&>(node));
    case Kind::Text:
        return writeText(static_cast<const Text&>(node));
    case Kind::Use:
        return writeUse(static_cast<const Use&>(node));
    case Kind::Path:
    case Kind::Polyline:
    case Kind::Polygon:
        return writeShape(static_cast<const Shape&>(node));
    default:
        return openGroup(static_cast<const Container&>(node));
    }
}

void SvgWriter::openGroup(const Container& group)
{
    begin("g");
    setStyle(group);
    m_out.open(m_element);
}

void SvgWriter::writeLine(const Line& line)
{
    begin("line");
    setJoined("x1", line.x1);
    setJoined("y1", line.y1);
    setJoined("x2", line.x2);
    setJoined("y2", line.y2);
    setRotation(line, line.number(AttributeId::CenterX, 0), line.number(AttributeId::CenterY, 0));
    setStyle(line);
}

// A negative radius, an error in SVG, is drawn as the positive one.
void SvgWriter::writeEllipse(const Ellipse& ellipse)
{
    if (ellipse.kind == Kind::Circle) {
        begin("circle");
        setJoined("r", std::fabs(ellipse.radiusX));
    } else {
        begin("ellipse");
        setJoined("rx", std::fabs(ellipse.radiusX));
        setJoined("ry", std::fabs(ellipse.radiusY));
    }
    setJoined("cx", ellipse.centerX);
    setJoined("cy", ellipse.centerY);
    setRotation(ellipse, ellipse.number(AttributeId::CenterX, 0), ellipse.number(AttributeId::CenterY, 0));
    setStyle(ellipse);
}

void SvgWriter::writeShape(const Shape& shape)
{
    begin(elementName(shape.kind));
    set(shape.kind == Kind::Path ? "d" : "points", shape.data);
    setRotation(shape, shape.number(AttributeId::CenterX, 0), shape.number(AttributeId::CenterY, 0));
    setStyle(shape);
}

// Text is filled in the colour that the module strokes it with: an outline would blur small letters.
void SvgWriter::writeText(const Text& text)
{
    begin("text");
    setJoined("x", text.x);
    setJoined("y", text.y);
    set("fill", strokeColour(text.stroke));
    set("stroke", "none");
    if (text.keepsBlanks)
        set("xml:space", "preserve");
    setRotation(text, text.x, text.y);
    setExtras(text);
    m_out.addText(m_element, text.text);
}

void SvgWriter::writeUse(const Use& use)
{
    const double rotation = use.number(AttributeId::Rotate, 0);
    const double scaleX = use.number(AttributeId::ScaleX, 1);
    const double scaleY = use.number(AttributeId::ScaleY, 1);
    begin("use");
    m_value.assign(1, '#');
    appendSymbolId(m_value, *use.target, 1);
    set("xlink:href", m_value);
    m_value.clear();
    appendParts("translate(", use.x, ",", use.y);
    if (rotation != 0)
        appendParts(") rotate(", rotation);
    if (scaleX != 1 || scaleY != 1)
        appendParts(") scale(", scaleX, ",", scaleY);
    appendParts(")");
    set("transform", m_value);
    setStyle(use);
}

void SvgWriter::setStyle(const Node& node)
{
    setValue("stroke-width", AttributeId::StrokeWidth, node.strokeWidth);
    setValue("stroke", AttributeId::Stroke, node.stroke);
    setDashes(node.dashArray);
    setExtras(node);
}

// Round ends make dashes of length 0 seen, as dots. Other dashes do without: the ends would fill the gaps.
void SvgWriter::setDashes(std::uint32_t index)
{
    const Value& dashes = m_document.value(AttributeId::DashArray, index);
    if (index == 0 || dashes.dropped)
        return;
    set("stroke-dasharray", dashes.text);
    if (dashes.dotted)
        set("stroke-linecap", "round");
}

void SvgWriter::setValue(const char* name, AttributeId id, std::uint32_t index)
{
    if (index != 0 && !m_document.value(id, index).dropped)
        set(name, m_document.value(id, index).text);
}

void SvgWriter::setExtras(const Node& node)
{
    if (!node.extra)
        return;
    for (const ExtraAttribute* attribute = node.extra; attribute; attribute = attribute->next)
        setExtra(node, *attribute);
    setArrow("marker-start", "begin", node, arrowSize(m_document, node, ArrowEnd::Begin));
    setArrow("marker-end", "end", node, arrowSize(m_document, node, ArrowEnd::End));
}

void SvgWriter::setExtra(const Node& node, const ExtraAttribute& extra)
{
    switch (extra.id) {
    case AttributeId::FillOpacity:
        return setValue("fill-opacity", extra.id, extra.value);
    case AttributeId::Visibility:
        return setValue("visibility", extra.id, extra.value);
    case AttributeId::TextAnchor:
        return setValue("text-anchor", extra.id, extra.value);
    case AttributeId::FontSize:
        if (isDrawable(extra.number))
            setJoined("font-size", std::fabs(extra.number));
        return;
    case AttributeId::Other: {
        const auto& other = static_cast<const OtherAttribute&>(extra);
        // A symbol has its own data-name.
        if (node.kind != Kind::Symbol || other.name != "data-name")
            set(other.name.data(), other.text);
        return;
    }
    default: // written with the transform or as an arrow head
        return;
    }
}

void SvgWriter::setRotation(const Node& node, double centreX, double centreY)
{
    const double degrees = node.extra ? node.number(AttributeId::Rotate, 0) : 0;
    if (degrees != 0)
        setJoined("transform", "rotate(", degrees, " ", centreX, " ", centreY, ")");
}

void SvgWriter::setArrow(const char* name, const char* end, const Node& node, double size)
{
    if (size != 0)
        setJoined(name, "url(#arrow-", end, "-", static_cast<double>(m_layout.arrows.at({node.stroke, size})),
                  ")");
}

std::string_view SvgWriter::strokeColour(std::uint32_t stroke) const
{
    const Value& value = m_document.value(AttributeId::Stroke, stroke);
    return stroke == 0 || value.dropped ? kDefaultColour : value.text;
}

template <class... Parts>
void SvgWriter::appendParts(const Parts&... parts)
{
    (appendPart(m_value, parts), ...);
}

template <class... Parts>
void SvgWriter::setJoined(const char* attribute, const Parts&... parts)
{
    m_value.clear();
    appendParts(parts...);
    set(attribute, m_value);
}

} // namespace svghost
