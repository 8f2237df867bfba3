#include "svghost/SvgWriter.h"

#include "svghost/AgreedSymbols.h"
#include "svghost/Bounds.h"
#include "svghost/DrawableNumbers.h"
#include "svghost/ElementBytes.h"
#include "svghost/Fills.h"
#include "svghost/InkscapeLayers.h"
#include "svghost/LayerMarks.h"
#include "svghost/TextSymbols.h"
#include "svghost/XmlText.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace svghost {

namespace {

// The larger side of the picture, in pixels, where the viewer does not fit it into something.
constexpr double kPixels = 1024;

// Elements without a colour of their own, which are those of dimensions, get that of a dimension's text: it
// is visible on black and on white.
constexpr std::string_view kDefaultColour = "#00ff00";

// Only the first symbol of a name is referred to; the prefixes keep all identifiers apart.
void AppendSymbolId(std::string& out, const SymbolName& name, std::size_t definition)
{
    if (definition == 1) {
        out += "s-";
    } else {
        char digits[kLongestInteger];
        out += 'd';
        out.append(digits, FormatInteger(definition, digits));
        out += '-';
    }
    AppendXmlName(out, name.name);
}

// With four digits, because nobody sees more; rounded up, because a stroke has a least width. A viewer cannot
// hold a number larger than any float, and one smaller than any float is nothing.
float RoundedUp(double number)
{
    constexpr double kSmallest = 1e-37;
    if (!(number >= kSmallest))
        return 0;
    const double unit = std::pow(10, std::floor(std::log10(number)) - 3);
    const double rounded = std::ceil(number / unit * (1 - 1e-9)) * unit;
    return static_cast<float>(std::min(rounded, 3e38));
}

// A longer dash pattern is written once, if patterns are shared.
constexpr std::size_t kLongestOwnDashes = 200;

// A longer line of writing that is used again is written once.
constexpr std::size_t kLongestRepeated = 1000;

bool IsPart(const Symbol& symbol)
{
    return symbol.definition == 1 && symbol.name->name.starts_with(kPartPrefix) && !symbol.extra &&
           symbol.strokeWidth == 0 && symbol.stroke == 0 && symbol.dashArray == 0;
}

// Whether it is all of the drawing, in other units.
bool IsWrap(const Container& container)
{
    return container.kind == Kind::Symbol &&
           static_cast<const Symbol&>(container).name->name.starts_with(kWrapPrefix);
}

bool IsShared(const Value& dashes)
{
    return !dashes.isDropped && dashes.text.size() > kLongestOwnDashes;
}

std::string DashClass(std::uint32_t index)
{
    return "dashes-" + std::to_string(index);
}

bool HasGroups(const Container& container)
{
    for (const Node* node = container.first; node; node = node->next)
        if (node->kind == Kind::Group)
            return true;
    return false;
}

std::size_t BlanksAtEnd(const Text& run)
{
    const std::size_t last = run.text.find_last_not_of(' ');
    return last == std::string_view::npos ? 0 : run.text.size() - 1 - last;
}

const Text* NextRun(const Text& run)
{
    return static_cast<const Text*>(run.next);
}

bool HasOtherSize(const Text& run, const Text& first)
{
    const double size = run.Number(AttributeId::FontSize, 0);
    return IsDrawable(size) && size != 0 && size != first.Number(AttributeId::FontSize, 0);
}

bool IsStretched(const Use& use)
{
    return std::fabs(use.Number(AttributeId::ScaleX, 1)) != std::fabs(use.Number(AttributeId::ScaleY, 1));
}

// What is used once is drawn where it is used. If each use were drawn in place, a file could grow to the
// product of its uses and its points; writing is short, and is searched and selected where it is.
bool IsDrawnInPlace(const Symbol& symbol)
{
    if (IsLayerMark(symbol))
        return true;
    if (symbol.isWriting && LengthOfWriting(symbol) <= kLongestRepeated)
        return true;
    return (symbol.isFill || symbol.isWriting || IsPart(symbol)) && symbol.name->uses <= 1;
}

} // namespace

SvgWriter::SvgWriter(const SvgHostDocument& document, const PictureLayout& layout, const Picture& picture,
                     SvgHostWriteFunction write, void* user)
    : m_document(document), m_layout(layout), m_picture(picture), m_out(write, user)
{
}

bool SvgWriter::Run(const SvgHostWriteOptions& options)
{
    m_background = options.background;
    m_groupsLayers = options.groupsLayers;
    m_fontFamily = options.fontFamily ? options.fontFamily : "sans-serif";
    m_budget = ByteBudget(options.mostBytes);
    m_out.Declare();
    OpenRoot(options);
    if (options.style)
        WriteStyle(options.style);
    if (options.sharesDashPatterns)
        WriteDashClasses();
    m_budget.BeginBlocks();
    WriteDefinitions();
    m_budget.BeginDrawing();
    if (options.background)
        WriteBackground(options.background);
    OpenDrawing();
    WriteContents(m_document.root);
    m_out.Close("g");
    m_out.Close("svg");
    return m_out.Finish();
}

void SvgWriter::OpenRoot(const SvgHostWriteOptions& options)
{
    const ViewBox& box = m_picture.viewBox;
    m_out.Begin("svg");
    m_out.SetPlain("xmlns", "http://www.w3.org/2000/svg");
    m_out.SetPlain("xmlns:xlink", "http://www.w3.org/1999/xlink");
    if (m_groupsLayers)
        m_out.SetPlain("xmlns:inkscape", "http://www.inkscape.org/namespaces/inkscape");
    if (options.generator)
        m_out.Set("data-generator", XmlTextOf(options.generator));
    if (m_picture.scale > 0)
        SetPhysicalSize();
    else
        SetPixelSize();
    // The margin is far wider than the rounding to 32 bits.
    m_out.SetPlain("viewBox", static_cast<float>(box.x), " ", static_cast<float>(box.y), " ",
                   static_cast<float>(box.width), " ", static_cast<float>(box.height));
    m_out.Open();
}

void SvgWriter::SetPixelSize()
{
    const ViewBox& box = m_picture.viewBox;
    const double scale = kPixels / std::max(box.width, box.height);
    const auto pixels = [&](double side) { return std::max(1.0, std::round(side * scale)); };
    m_out.SetPlain("width", pixels(box.width));
    m_out.SetPlain("height", pixels(box.height));
}

void SvgWriter::SetPhysicalSize()
{
    m_out.SetPlain("width", static_cast<float>(m_picture.width), "mm");
    m_out.SetPlain("height", static_cast<float>(m_picture.height), "mm");
}

void SvgWriter::WriteStyle(const char* style)
{
    m_out.Begin("style");
    m_out.SetText(XmlTextOf(style));
}

// What a class has no room for is written by each element, if that has room for it.
void SvgWriter::WriteDashClasses()
{
    const ValueTable& patterns = m_document.Values(AttributeId::DashArray);
    std::string style;
    for (std::uint32_t index = 1; index < patterns.Size(); ++index) {
        const Value& dashes = patterns.At(index);
        if (!IsShared(dashes))
            continue;
        if (style.size() + dashes.text.size() > m_budget.MostOfDashClasses())
            break;
        style.append(".")
            .append(DashClass(index))
            .append("{stroke-dasharray:")
            .append(dashes.text)
            .append("}");
        m_lastDashClass = index;
    }
    if (!style.empty())
        WriteStyle(style.c_str());
}

// The module fills nothing, while SVG would fill everything.
void SvgWriter::OpenDrawing()
{
    m_out.Begin("g");
    m_out.SetPlain("fill", "none");
    m_out.Set("stroke", kDefaultColour);
    if (m_picture.sheetUnit != 0)
        m_out.SetPlain("stroke-width", RoundedUp(m_picture.ShownWidth(kDefaultStrokeWidth)));
    m_out.SetPlain("stroke-linejoin", "round");
    m_out.Set("font-family", XmlTextOf(m_fontFamily));
    if (m_groupsLayers)
        SetInkscapeLayer(m_out, "Drawing");
    m_out.Open();
}

void SvgWriter::WriteDefinitions()
{
    const auto isDrawnInPlace = [](const Symbol* symbol) { return IsDrawnInPlace(*symbol); };
    if (m_layout.arrows.empty() &&
        std::all_of(m_document.symbols.begin(), m_document.symbols.end(), isDrawnInPlace))
        return;
    m_out.Begin("defs");
    m_out.Open();
    for (const auto& [look, number] : m_layout.arrows) {
        WriteArrow("begin", -1, look.first, look.second, number);
        WriteArrow("end", 1, look.first, look.second, number);
    }
    for (const Symbol* symbol : m_document.symbols)
        if (!IsDrawnInPlace(*symbol))
            WriteSymbol(*symbol);
    m_out.Close("defs");
}

// One marker for each end: not every viewer turns a marker round by itself.
void SvgWriter::WriteArrow(const char* end, double direction, std::uint32_t stroke, double size,
                           std::size_t number)
{
    const double length = kArrowLength * size * direction;
    const double halfWidth = kArrowHalfWidth * size;
    m_out.Begin("marker");
    m_out.SetPlain("id", "arrow-", end, "-", static_cast<double>(number));
    m_out.SetPlain("markerUnits", "userSpaceOnUse");
    m_out.SetPlain("orient", "auto");
    m_out.SetPlain("overflow", "visible");
    m_out.SetPlain("markerWidth", kArrowLength * size);
    m_out.SetPlain("markerHeight", 2 * halfWidth);
    m_out.Open();
    m_out.Begin("path");
    m_out.SetPlain("d", "M0 0L", -length, " ", halfWidth, "L", -length * 0.7, " 0L", -length, " ", -halfWidth,
                   "Z");
    m_out.SetPlain("stroke", "none");
    m_out.SetPlain("fill", StrokeColour(stroke));
    m_out.Close("marker");
}

void SvgWriter::WriteSymbol(const Symbol& symbol)
{
    m_out.Begin("symbol");
    m_id.clear();
    AppendSymbolId(m_id, *symbol.name, symbol.definition);
    m_out.SetPlain("id", m_id);
    m_out.Set("data-name", XmlTextOf(symbol.name->name));
    m_out.SetPlain("overflow", "visible");
    m_scale = symbol.meanScale;
    SetStyle(symbol);
    m_out.Open();
    if (!symbol.isFill)
        WriteContents(symbol);
    else if (m_budget.Take(m_out.Size(), LongBytesOf(symbol)))
        WriteFill(symbol);
    m_out.Close("symbol");
    m_scale = 1;
}

// The rectangle reaches beyond the view box, whose sides seldom have the ratio of whole pixels.
void SvgWriter::WriteBackground(const char* colour)
{
    const ViewBox& box = m_picture.viewBox;
    m_out.Begin("rect");
    m_out.SetPlain("x", static_cast<float>(box.x - box.width / 2));
    m_out.SetPlain("y", static_cast<float>(box.y - box.height / 2));
    m_out.SetPlain("width", static_cast<float>(box.width * 2));
    m_out.SetPlain("height", static_cast<float>(box.height * 2));
    m_out.Set("fill", XmlTextOf(colour));
}

void SvgWriter::WriteContents(const Container& container)
{
    LayerRun run(m_out, m_layerTexts);
    LayerRun* const outer = std::exchange(m_run, &run);
    const bool isWhole = container.kind == Kind::Root || IsWrap(container);
    if (m_groupsLayers && isWhole && !HasGroups(container))
        WriteLayers(container);
    else
        WriteRuns(container);
    m_run = outer;
}

void SvgWriter::WriteRuns(const Container& container)
{
    Walk(
        container,
        [this](const Node& node) {
            if (const Symbol* mark = m_document.MarkAt(node))
                m_run->Take(*mark);
            WriteNode(node);
        },
        [this](const Container&) {
            m_run->LeaveGroup();
            m_out.Close("g");
        });
    m_run->End();
}

void SvgWriter::WriteLayers(const Container& container)
{
    for (const InkscapeLayer& group : InkscapeLayersOf(m_document, container)) {
        const bool hasLayer = !group.layer.empty();
        if (hasLayer)
            OpenInkscapeLayer(m_out, group.layer);
        for (const Node* node : group.nodes)
            WriteNode(*node);
        if (hasLayer)
            m_out.Close("g");
    }
}

bool SvgWriter::HasRoomFor(const Node& node)
{
    if (IsContainer(node))
        return true;
    const Symbol* used = node.kind == Kind::Use ? static_cast<const Use&>(node).target->definition : nullptr;
    return m_budget.Take(m_out.Size(), LongBytesOf(m_document, node) +
                                           (used && IsDrawnInPlace(*used) ? LongBytesOf(*used) : 0));
}

void SvgWriter::WriteNode(const Node& node)
{
    if (node.isLeftOut || LayerMarkOf(node))
        return;
    if (!HasRoomFor(node))
        return;
    m_run->BeginElement();
    switch (node.kind) {
    case Kind::Line:
        return WriteLine(static_cast<const Line&>(node));
    case Kind::Circle:
    case Kind::Ellipse:
        return WriteEllipse(static_cast<const Ellipse&>(node));
    case Kind::Text:
        return WriteText(static_cast<const Text&>(node));
    case Kind::Use:
        return WriteUse(static_cast<const Use&>(node));
    case Kind::Path:
    case Kind::Polyline:
    case Kind::Polygon:
        return WriteShape(static_cast<const Shape&>(node));
    default:
        return OpenGroup(static_cast<const Container&>(node));
    }
}

void SvgWriter::OpenGroup(const Container& group)
{
    m_out.Begin("g");
    SetStyle(group);
    m_out.Open();
    m_run->EnterGroup();
}

void SvgWriter::WriteLine(const Line& line)
{
    m_out.Begin("line");
    m_out.SetPlain("x1", line.x1);
    m_out.SetPlain("y1", line.y1);
    m_out.SetPlain("x2", line.x2);
    m_out.SetPlain("y2", line.y2);
    SetRotation(line, line.Number(AttributeId::CenterX, 0), line.Number(AttributeId::CenterY, 0));
    SetStyle(line);
}

// A negative radius, an error in SVG, is drawn as the positive one.
void SvgWriter::WriteEllipse(const Ellipse& ellipse)
{
    if (ellipse.kind == Kind::Circle) {
        m_out.Begin("circle");
        m_out.SetPlain("r", std::fabs(ellipse.radiusX));
    } else {
        m_out.Begin("ellipse");
        m_out.SetPlain("rx", std::fabs(ellipse.radiusX));
        m_out.SetPlain("ry", std::fabs(ellipse.radiusY));
    }
    m_out.SetPlain("cx", ellipse.centerX);
    m_out.SetPlain("cy", ellipse.centerY);
    SetRotation(ellipse, ellipse.Number(AttributeId::CenterX, 0), ellipse.Number(AttributeId::CenterY, 0));
    SetStyle(ellipse);
}

void SvgWriter::WriteShape(const Shape& shape)
{
    if (shape.kind == Kind::Path)
        m_out.Begin("path");
    else if (shape.kind == Kind::Polyline)
        m_out.Begin("polyline");
    else
        m_out.Begin("polygon");
    if (shape.kind == Kind::Path)
        m_out.SetPlain("d", shape.data);
    else
        m_out.SetPlain("points", shape.data);
    SetRotation(shape, shape.Number(AttributeId::CenterX, 0), shape.Number(AttributeId::CenterY, 0));
    SetStyle(shape);
}

// Text is filled in the colour that the module strokes it with: an outline would blur small letters.
void SvgWriter::WriteText(const Text& text)
{
    m_out.Begin("text");
    m_out.SetPlain("x", text.x);
    m_out.SetPlain("y", text.y);
    m_out.SetPlain("fill", StrokeColour(text.stroke));
    m_out.SetPlain("stroke", "none");
    if (text.keepsBlanks)
        m_out.SetPlain("xml:space", "preserve");
    SetRotation(text, text.x, text.y);
    SetExtras(text);
    m_out.SetText(text.text);
}

void SvgWriter::WriteUse(const Use& use)
{
    const Symbol* target = use.target->definition;
    if (target && IsDrawnInPlace(*target))
        return WriteInPlace(use, *target);
    m_out.Begin("use");
    m_id.clear();
    AppendSymbolId(m_id, *use.target, 1);
    m_out.SetPlain("xlink:href", "#", m_id);
    SetPlace(use);
    SetStyle(use);
}

void SvgWriter::WriteInPlace(const Use& use, const Symbol& symbol)
{
    if (symbol.isWriting)
        return WriteLineOfText(use, symbol);
    if (!symbol.isFill)
        return WritePart(use, symbol);
    WriteFill(symbol);
    if (TransformOf(use) != Affine())
        SetPlace(use);
    SetExtras(use);
}

void SvgWriter::WritePart(const Use& use, const Symbol& part)
{
    m_out.Begin("g");
    SetPlace(use);
    SetStyle(use);
    if (m_groupsLayers && IsWrap(part))
        SetInkscapeLayer(m_out, "Drawing");
    m_out.Open();
    const double scale = std::exchange(m_scale, part.meanScale);
    WriteContents(part);
    m_scale = scale;
    m_out.Close("g");
}

// One element, so that people find and select the words where they see them. All runs have the anchor of the
// first.
void SvgWriter::WriteLineOfText(const Use& use, const Symbol& writing)
{
    m_out.Begin("text");
    m_out.BeginValue("transform");
    PutPlace(use);
    const Symbol* line = &writing;
    if (const Use* inner = InnerUse(writing)) {
        m_out.Put(" ");
        PutPlace(*inner);
        line = inner->target->definition;
    }
    m_out.EndValue();
    SetExtras(use);
    const Text& first = static_cast<const Text&>(*line->first);
    const double size = first.Number(AttributeId::FontSize, 0);
    const double spread = IsDrawable(size) ? SpreadOfWriting(*line) * std::fabs(size) : 0;
    const float width = WidthOfWriting(*line);
    // Some viewers take stretched runs for as wide as unstretched ones, and misplace those that follow.
    const bool arePlaced = first.next && IsStretched(use) && !first.Find(AttributeId::TextAnchor);
    if (first.x != 0 && !arePlaced && (!first.next || width > 0))
        m_out.SetPlain("x", first.x);
    if (first.y != 0)
        m_out.SetPlain("y", first.y);
    m_out.SetPlain("fill", StrokeColour(first.stroke));
    m_out.SetPlain("stroke", "none");
    bool keepsBlanks = false;
    for (const Node* run = &first; run; run = run->next)
        keepsBlanks = keepsBlanks || static_cast<const Text*>(run)->keepsBlanks;
    if (keepsBlanks)
        m_out.SetPlain("xml:space", "preserve");
    SetExtras(first);
    if (!arePlaced)
        SetLength(width);
    if (arePlaced)
        WritePlacedRuns(first, spread, width);
    else
        WriteFollowingRuns(first, spread);
    m_out.Close("text");
}

void SvgWriter::SetLength(double length)
{
    if (!(length > 0) || !IsDrawable(length))
        return;
    m_out.SetPlain("textLength", static_cast<float>(length));
    m_out.SetPlain("lengthAdjust", "spacingAndGlyphs");
}

// Each run follows the one before, after blanks that are wider by the spread.
void SvgWriter::WriteFollowingRuns(const Text& first, double spread)
{
    m_out.OpenText(first.text);
    for (const Text* run = &first; const Text* next = NextRun(*run); run = next) {
        const double shift = spread * static_cast<double>(BlanksAtEnd(*run));
        const double drop = static_cast<double>(next->y) - run->y;
        if (shift == 0 && drop == 0 && !HasOtherSize(*next, first) && next->stroke == first.stroke) {
            m_out.AddText(next->text);
            continue;
        }
        m_out.Begin("tspan");
        SetShift("dx", shift);
        SetShift("dy", drop);
        SetLook(*next, first);
        m_out.SetRun(next->text);
    }
}

// Each run is at its own place, and so wide that it ends where the next one begins.
void SvgWriter::WritePlacedRuns(const Text& first, double spread, double width)
{
    m_out.OpenText({});
    for (const Text *run = &first, *last = &first; run; last = run, run = NextRun(*run)) {
        m_out.Begin("tspan");
        m_out.SetPlain("x", run->x);
        if (run->y != last->y)
            m_out.SetPlain("y", run->y);
        const Text* const next = NextRun(*run);
        const double end = next ? next->x : width > 0 ? first.x + width : run->x;
        SetLength(end - run->x - spread * static_cast<double>(BlanksAtEnd(*run)));
        SetLook(*run, first);
        m_out.SetRun(run->text);
    }
}

void SvgWriter::SetShift(const char* name, double shift)
{
    if (shift != 0 && IsDrawable(shift))
        m_out.SetPlain(name, static_cast<float>(shift));
}

// What the run does not have from the first one of its line.
void SvgWriter::SetLook(const Text& run, const Text& first)
{
    if (run.stroke != first.stroke)
        m_out.SetPlain("fill", StrokeColour(run.stroke));
    if (HasOtherSize(run, first))
        m_out.SetPlain("font-size", std::fabs(run.Number(AttributeId::FontSize, 0)));
}

// The area between the edges has their colour, or hides with the background's what was drawn before. A point
// is in it if a line from there to the outside crosses an odd number of them.
void SvgWriter::WriteFill(const Symbol& fill)
{
    std::uint32_t stroke = 0;
    m_out.Begin("path");
    m_out.BeginValue("d");
    ForFillEdges(fill, [&](const Shape& edge) {
        stroke = edge.stroke;
        m_out.PutAll("M", edge.data, "Z");
    });
    m_out.EndValue();
    const bool isMask = IsMask(fill);
    m_out.SetPlain("fill", isMask ? std::string_view("none") : StrokeColour(stroke));
    m_out.SetPlain("fill-rule", "evenodd");
    m_out.SetPlain("stroke", "none");
    // A style sheet may change colours of the drawing, but not the background's.
    if (isMask && m_background)
        m_out.Set("style", XmlTextOf(std::string_view(std::string("fill:").append(m_background))));
}

void SvgWriter::SetPlace(const Use& use)
{
    m_out.BeginValue("transform");
    PutPlace(use);
    m_out.EndValue();
}

void SvgWriter::PutPlace(const Use& use)
{
    const double rotation = use.Number(AttributeId::Rotate, 0);
    const double scaleX = use.Number(AttributeId::ScaleX, 1);
    const double scaleY = use.Number(AttributeId::ScaleY, 1);
    m_out.PutAll("translate(", use.x, ",", use.y);
    if (rotation != 0)
        m_out.PutAll(") rotate(", rotation);
    if (scaleX != 1 || scaleY != 1)
        m_out.PutAll(") scale(", scaleX, ",", scaleY);
    m_out.Put(")");
}

void SvgWriter::SetStyle(const Node& node)
{
    SetStrokeWidth(node);
    SetValue("stroke", AttributeId::Stroke, node.stroke);
    SetDashes(node.dashArray);
    SetExtras(node);
}

void SvgWriter::SetStrokeWidth(const Node& node)
{
    if (m_picture.sheetUnit == 0)
        return SetValue("stroke-width", AttributeId::StrokeWidth, node.strokeWidth);
    if (node.strokeWidth == 0 || m_document.ValueOf(AttributeId::StrokeWidth, node.strokeWidth).isDropped)
        return;
    // What a use says counts for what is in its symbol.
    const Symbol* target =
        node.kind == Kind::Use ? static_cast<const Use&>(node).target->definition : nullptr;
    m_out.SetPlain("stroke-width", SheetWidth(node.strokeWidth, target ? target->meanScale : m_scale));
}

float SvgWriter::SheetWidth(std::uint32_t index, double scale)
{
    if (index >= m_widths.size())
        m_widths.resize(index + 1);
    WrittenWidth& written = m_widths[index];
    if (written.scale != scale) {
        const double given = m_document.ValueOf(AttributeId::StrokeWidth, index).number;
        written = {scale, RoundedUp(m_picture.ShownWidth(given) / scale)};
    }
    return written.width;
}

// Round ends make dashes of length 0 visible, as dots. Other dashes have none: they would fill the gaps.
void SvgWriter::SetDashes(std::uint32_t index)
{
    const Value& dashes = m_document.ValueOf(AttributeId::DashArray, index);
    if (index == 0 || dashes.isDropped)
        return;
    if (index <= m_lastDashClass && IsShared(dashes))
        m_out.SetPlain("class", DashClass(index));
    else
        m_out.SetPlain("stroke-dasharray", dashes.text);
    if (dashes.isDotted)
        m_out.SetPlain("stroke-linecap", "round");
}

template <std::size_t size>
void SvgWriter::SetValue(const char (&name)[size], AttributeId id, std::uint32_t index)
{
    if (index != 0 && !m_document.ValueOf(id, index).isDropped)
        m_out.SetPlain(name, m_document.ValueOf(id, index).text);
}

void SvgWriter::SetExtras(const Node& node)
{
    if (!node.extra)
        return;
    for (const ExtraAttribute* attribute = node.extra; attribute; attribute = attribute->next)
        SetExtra(node, *attribute);
    SetArrow("marker-start", "begin", node, ArrowSize(m_document, node, ArrowEnd::Begin));
    SetArrow("marker-end", "end", node, ArrowSize(m_document, node, ArrowEnd::End));
}

void SvgWriter::SetExtra(const Node& node, const ExtraAttribute& extra)
{
    switch (extra.id) {
    case AttributeId::FillOpacity:
        return SetValue("fill-opacity", extra.id, extra.value);
    case AttributeId::Visibility:
        return SetValue("visibility", extra.id, extra.value);
    case AttributeId::TextAnchor:
        return SetValue("text-anchor", extra.id, extra.value);
    case AttributeId::FontSize:
        if (IsDrawable(extra.number))
            m_out.SetPlain("font-size", std::fabs(extra.number));
        return;
    case AttributeId::Other: {
        const auto& other = static_cast<const OtherAttribute&>(extra);
        // A symbol has its own data-name.
        if (node.kind != Kind::Symbol || other.name != "data-name")
            m_out.Set(other.name, other.text);
        return;
    }
    default: // written with the transform or as an arrow head
        return;
    }
}

void SvgWriter::SetRotation(const Node& node, double centreX, double centreY)
{
    const double degrees = node.extra ? node.Number(AttributeId::Rotate, 0) : 0;
    if (degrees != 0)
        m_out.SetPlain("transform", "rotate(", degrees, " ", centreX, " ", centreY, ")");
}

void SvgWriter::SetArrow(const char* name, const char* end, const Node& node, double size)
{
    if (size != 0)
        m_out.SetPlain(name, "url(#arrow-", end, "-",
                       static_cast<double>(m_layout.arrows.at({node.stroke, size})), ")");
}

std::string_view SvgWriter::StrokeColour(std::uint32_t stroke) const
{
    const Value& value = m_document.ValueOf(AttributeId::Stroke, stroke);
    return stroke == 0 || value.isDropped ? kDefaultColour : value.text;
}

} // namespace svghost
