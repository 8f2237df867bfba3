#include "svghost/SvgWriter.h"

#include "svghost/NumberText.h"
#include "svghost/XmlText.h"

#include <algorithm>
#include <cmath>

namespace svghost {
namespace {

constexpr std::size_t kPiece = std::size_t(1) << 16;

// The larger side of the picture, in pixels, where the viewer does not fit it into something.
constexpr double kPixels = 1024;

// Elements without a colour of their own, which are those of dimensions, get that of a dimension's text: it
// is seen on black and on white.
constexpr std::string_view kDefaultColour = "#00ff00";

// The module fills nothing, while SVG would fill everything. Round ends let dots (dashes of length 0) show.
constexpr std::string_view kDrawingGroup =
    "<g fill=\"none\" stroke=\"#00ff00\" stroke-linecap=\"round\" stroke-linejoin=\"round\" "
    "font-family=\"sans-serif\">\n";

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

std::string_view elementName(Kind kind)
{
    switch (kind) {
    case Kind::Path:
        return "<path d=\"";
    case Kind::Polyline:
        return "<polyline points=\"";
    default:
        return "<polygon points=\"";
    }
}

} // namespace

SvgWriter::SvgWriter(const SvgHostDocument& document, const Layout& layout, SvgHostWriteFunction write,
                     void* user)
    : m_document(document), m_layout(layout), m_write(write), m_user(user)
{
    m_out.reserve(kPiece + kPiece / 4);
}

bool SvgWriter::run(const char* background)
{
    writeHead();
    writeDefinitions();
    if (background)
        writeBackground(background);
    put(kDrawingGroup);
    writeContents(m_document.root);
    put("</g>\n</svg>\n");
    flush();
    return m_good;
}

void SvgWriter::writeHead()
{
    const ViewBox& box = m_layout.viewBox;
    const double scale = kPixels / std::max(box.width, box.height);
    const auto pixels = [&](double side) { return std::max(1.0, std::round(side * scale)); };
    put("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
        "xmlns:xlink=\"http://www.w3.org/1999/xlink\"");
    attribute("width", pixels(box.width));
    attribute("height", pixels(box.height));
    // The margin is far wider than the rounding to 32 bits.
    put(" viewBox=\"", static_cast<float>(box.x));
    put(" ", static_cast<float>(box.y));
    put(" ", static_cast<float>(box.width));
    put(" ", static_cast<float>(box.height));
    put("\">\n");
}

void SvgWriter::writeDefinitions()
{
    if (m_layout.arrows.empty() && m_document.symbols.empty())
        return;
    put("<defs>\n");
    for (const auto& [look, number] : m_layout.arrows) {
        writeArrow("begin", -1, look.first, look.second, number);
        writeArrow("end", 1, look.first, look.second, number);
    }
    for (const Symbol* symbol : m_document.symbols)
        writeSymbol(*symbol);
    put("</defs>\n");
}

// One marker for each end: not every viewer turns a marker round by itself.
void SvgWriter::writeArrow(const char* end, double direction, std::uint32_t stroke, double size,
                           std::size_t number)
{
    const double length = kArrowLength * size * direction;
    const double halfWidth = kArrowHalfWidth * size;
    put("<marker id=\"arrow-");
    put(end);
    put("-", static_cast<double>(number));
    put("\" markerUnits=\"userSpaceOnUse\" orient=\"auto\" overflow=\"visible\"");
    attribute("markerWidth", kArrowLength * size);
    attribute("markerHeight", 2 * halfWidth);
    put("><path d=\"M0 0L", -length);
    put(" ", halfWidth);
    put("L", -length * 0.7);
    put(" 0L", -length);
    put(" ", -halfWidth);
    put("Z\" stroke=\"none\" fill=\"");
    put(strokeColour(stroke));
    put("\"/></marker>\n");
}

void SvgWriter::writeSymbol(const Symbol& symbol)
{
    put("<symbol id=\"");
    appendSymbolId(m_out, *symbol.name, symbol.definition);
    put("\" data-name=\"");
    appendXml(m_out, symbol.name->name);
    put("\" overflow=\"visible\"");
    writeStyle(symbol);
    put(">\n");
    writeContents(symbol);
    put("</symbol>\n");
}

// The rectangle reaches beyond the view box, whose sides seldom have the ratio of whole pixels.
void SvgWriter::writeBackground(const char* colour)
{
    const ViewBox& box = m_layout.viewBox;
    put("<rect");
    attribute("x", static_cast<float>(box.x - box.width / 2));
    attribute("y", static_cast<float>(box.y - box.height / 2));
    attribute("width", static_cast<float>(box.width * 2));
    attribute("height", static_cast<float>(box.height * 2));
    put(" fill=\"");
    appendXmlFromUtf8(m_out, colour);
    put("\"/>\n");
}

void SvgWriter::writeContents(const Container& container)
{
    walk(
        container, [this](const Node& node) { writeNode(node); },
        [this](const Container&) { put("</g>\n"); });
}

void SvgWriter::writeNode(const Node& node)
{
    flushWhenFull();
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
        put("<g");
        writeStyle(node);
        put(">\n");
    }
}

void SvgWriter::writeLine(const Line& line)
{
    put("<line");
    attribute("x1", line.x1);
    attribute("y1", line.y1);
    attribute("x2", line.x2);
    attribute("y2", line.y2);
    writeRotation(line, line.number(AttributeId::CenterX, 0), line.number(AttributeId::CenterY, 0));
    writeStyle(line);
    put("/>\n");
}

// A negative radius, an error in SVG, is drawn as the positive one.
void SvgWriter::writeEllipse(const Ellipse& ellipse)
{
    put(ellipse.kind == Kind::Circle ? "<circle" : "<ellipse");
    if (ellipse.kind == Kind::Circle) {
        attribute("r", std::fabs(ellipse.radiusX));
    } else {
        attribute("rx", std::fabs(ellipse.radiusX));
        attribute("ry", std::fabs(ellipse.radiusY));
    }
    attribute("cx", ellipse.centerX);
    attribute("cy", ellipse.centerY);
    writeRotation(ellipse, ellipse.number(AttributeId::CenterX, 0), ellipse.number(AttributeId::CenterY, 0));
    writeStyle(ellipse);
    put("/>\n");
}

void SvgWriter::writeShape(const Shape& shape)
{
    put(elementName(shape.kind));
    put(shape.data);
    put("\"");
    writeRotation(shape, shape.number(AttributeId::CenterX, 0), shape.number(AttributeId::CenterY, 0));
    writeStyle(shape);
    put("/>\n");
}

// Text is filled in the colour that the module strokes it with: an outline would blur small letters.
void SvgWriter::writeText(const Text& text)
{
    put("<text");
    attribute("x", text.x);
    attribute("y", text.y);
    put(" fill=\"");
    put(strokeColour(text.stroke));
    put("\" stroke=\"none\"");
    if (text.keepsBlanks)
        put(" xml:space=\"preserve\"");
    writeRotation(text, text.x, text.y);
    writeExtras(text);
    put(">");
    put(text.text);
    put("</text>\n");
}

void SvgWriter::writeUse(const Use& use)
{
    const double rotation = use.number(AttributeId::Rotate, 0);
    const double scaleX = use.number(AttributeId::ScaleX, 1);
    const double scaleY = use.number(AttributeId::ScaleY, 1);
    put("<use xlink:href=\"#");
    appendSymbolId(m_out, *use.target, 1);
    put("\" transform=\"translate(", use.x);
    put(",", use.y);
    if (rotation != 0)
        put(") rotate(", rotation);
    if (scaleX != 1 || scaleY != 1) {
        put(") scale(", scaleX);
        put(",", scaleY);
    }
    put(")\"");
    writeStyle(use);
    put("/>\n");
}

void SvgWriter::writeStyle(const Node& node)
{
    writeValue("stroke-width", AttributeId::StrokeWidth, node.strokeWidth);
    writeValue("stroke", AttributeId::Stroke, node.stroke);
    writeValue("stroke-dasharray", AttributeId::DashArray, node.dashArray);
    writeExtras(node);
}

void SvgWriter::writeValue(std::string_view name, AttributeId id, std::uint32_t index)
{
    if (index == 0 || m_document.value(id, index).dropped)
        return;
    put(" ");
    put(name);
    put("=\"");
    put(m_document.value(id, index).text);
    put("\"");
}

void SvgWriter::writeExtras(const Node& node)
{
    if (!node.extra)
        return;
    for (const ExtraAttribute* attribute = node.extra; attribute; attribute = attribute->next)
        writeExtra(node, *attribute);
    writeArrowReference("marker-start", "begin", node, arrowSize(m_document, node, ArrowEnd::Begin));
    writeArrowReference("marker-end", "end", node, arrowSize(m_document, node, ArrowEnd::End));
}

void SvgWriter::writeExtra(const Node& node, const ExtraAttribute& extra)
{
    switch (extra.id) {
    case AttributeId::FillOpacity:
        return writeValue("fill-opacity", extra.id, extra.value);
    case AttributeId::Visibility:
        return writeValue("visibility", extra.id, extra.value);
    case AttributeId::TextAnchor:
        return writeValue("text-anchor", extra.id, extra.value);
    case AttributeId::FontSize:
        if (isDrawable(extra.number))
            attribute("font-size", std::fabs(extra.number));
        return;
    case AttributeId::Other: {
        const auto& other = static_cast<const OtherAttribute&>(extra);
        // A symbol has its own data-name.
        if (node.kind == Kind::Symbol && other.name == L"name")
            return;
        put(" data-");
        appendXml(m_out, other.name);
        put("=\"");
        put(other.text);
        put("\"");
        return;
    }
    default: // written with the transform or as an arrow head
        return;
    }
}

void SvgWriter::writeRotation(const Node& node, double centreX, double centreY)
{
    const double degrees = node.extra ? node.number(AttributeId::Rotate, 0) : 0;
    if (degrees == 0)
        return;
    put(" transform=\"rotate(", degrees);
    put(" ", centreX);
    put(" ", centreY);
    put(")\"");
}

void SvgWriter::writeArrowReference(std::string_view name, const char* end, const Node& node, double size)
{
    if (size == 0)
        return;
    put(" ");
    put(name);
    put("=\"url(#arrow-");
    put(end);
    put("-", static_cast<double>(m_layout.arrows.at({node.stroke, size})));
    put(")\"");
}

std::string_view SvgWriter::strokeColour(std::uint32_t stroke) const
{
    const Value& value = m_document.value(AttributeId::Stroke, stroke);
    return stroke == 0 || value.dropped ? kDefaultColour : value.text;
}

template <class Number>
void SvgWriter::put(std::string_view before, Number number)
{
    m_out.append(before);
    appendNumber(m_out, number);
}

template <class Number>
void SvgWriter::attribute(std::string_view name, Number number)
{
    m_out += ' ';
    m_out.append(name);
    m_out.append("=\"");
    appendNumber(m_out, number);
    m_out += '"';
}

void SvgWriter::flushWhenFull()
{
    if (m_out.size() >= kPiece)
        flush();
}

void SvgWriter::flush()
{
    m_good = m_good && (m_out.empty() || m_write(m_user, m_out.data(), m_out.size()));
    m_out.clear();
}

} // namespace svghost
