// The fourteen operations. None of them lets an exception out; a node or context of 0 does nothing.
#include "host/QuillmarLib.h"

#include "svghost/Document.h"
#include "svghost/Import.h"

using namespace svghost;

namespace {

// The document of a context node; null for 0 and for any other node.
SvgHostDocument* documentOf(QlmNode context)
{
    auto* node = static_cast<Node*>(context);
    return node && node->kind == Kind::Root ? static_cast<Root*>(node)->document : nullptr;
}

const wchar_t* textOf(const wchar_t* text)
{
    return text ? text : L"";
}

// Calls create(document); 0 without a document, beyond its limit, and when memory is short. An ignored
// group has no end that could go astray: whoever made it sets the current node to what it was before.
template <class Create>
QlmNode make(QlmNode context, Create create)
{
    SvgHostDocument* document = documentOf(context);
    if (!document || !document->hasRoom())
        return nullptr;
    try {
        // A handle is the address of the node, not of what it is derived into.
        Node* node = create(*document);
        return node;
    } catch (...) {
        document->shortOfMemory = true;
        return nullptr;
    }
}

Ellipse* appendEllipse(SvgHostDocument& document, Kind kind, Point radius, Point centre)
{
    auto* ellipse = document.arena.make<Ellipse>(kind);
    ellipse->radiusX = static_cast<float>(radius.x);
    ellipse->radiusY = static_cast<float>(radius.y);
    ellipse->centerX = static_cast<float>(centre.x);
    ellipse->centerY = static_cast<float>(centre.y);
    document.append(*ellipse);
    return ellipse;
}

} // namespace

QlmNode qlmCreateLine(QlmNode context, const wchar_t*, float x1, float y1, float x2, float y2, float, float)
{
    return make(context, [&](SvgHostDocument& document) {
        auto* line = document.arena.make<Line>();
        line->x1 = x1;
        line->y1 = y1;
        line->x2 = x2;
        line->y2 = y2;
        document.append(*line);
        return line;
    });
}

QlmNode qlmCreatePath(QlmNode context, const wchar_t*, const wchar_t* data, float, float)
{
    return make(context,
                [&](SvgHostDocument& document) { return document.createShape(Kind::Path, textOf(data)); });
}

QlmNode qlmCreateCircle(QlmNode context, const wchar_t*, float radius, float centerX, float centerY, float,
                        float)
{
    return make(context, [&](SvgHostDocument& document) {
        return appendEllipse(document, Kind::Circle, {radius, radius}, {centerX, centerY});
    });
}

QlmNode qlmCreateEllipse(QlmNode context, const wchar_t*, float radiusX, float radiusY, float centerX,
                         float centerY, float, float)
{
    return make(context, [&](SvgHostDocument& document) {
        return appendEllipse(document, Kind::Ellipse, {radiusX, radiusY}, {centerX, centerY});
    });
}

QlmNode qlmCreatePolyline(QlmNode context, const wchar_t*, const wchar_t* points, float, float)
{
    return make(context, [&](SvgHostDocument& document) {
        return document.createShape(Kind::Polyline, textOf(points));
    });
}

QlmNode qlmCreatePolygon(QlmNode context, const wchar_t*, const wchar_t* points, float, float)
{
    return make(context, [&](SvgHostDocument& document) {
        return document.createShape(Kind::Polygon, textOf(points));
    });
}

QlmNode qlmCreateText(QlmNode context, const wchar_t*, float firstX, float firstY, float, float,
                      const wchar_t* text, float secondX, float secondY)
{
    return make(context, [&](SvgHostDocument& document) {
        return document.createText(firstX + secondX, firstY + secondY, textOf(text));
    });
}

QlmNode qlmCreateUse(QlmNode context, const wchar_t*, float, float, const wchar_t* name, const wchar_t*,
                     float x, float y)
{
    return make(context, [&](SvgHostDocument& document) { return document.createUse(textOf(name), x, y); });
}

QlmNode qlmCreateSymbol(QlmNode context, const wchar_t* name)
{
    return make(context, [&](SvgHostDocument& document) { return document.createSymbol(textOf(name)); });
}

QlmNode qlmCreateG(QlmNode context, const wchar_t*)
{
    return make(context, [&](SvgHostDocument& document) { return document.createGroup(); });
}

QlmNode qlmGetCurrentSvgNode(QlmNode context)
{
    const SvgHostDocument* document = documentOf(context);
    if (!document || document->current == &document->root)
        return nullptr;
    return static_cast<Node*>(document->current);
}

void qlmSetCurrentSvgNode(QlmNode context, QlmNode node)
{
    SvgHostDocument* document = documentOf(context);
    if (!document)
        return;
    auto* target = static_cast<Node*>(node);
    if (!target)
        document->current = &document->root;
    else if (isContainer(*target))
        document->current = static_cast<Container*>(target);
}

void qlmSetAttributeByNode(QlmNode context, QlmNode node, const wchar_t* name, const wchar_t* value)
{
    SvgHostDocument* document = documentOf(context);
    if (!document || !node || node == context)
        return;
    try {
        document->setAttribute(*static_cast<Node*>(node), textOf(name), textOf(value));
    } catch (...) {
        document->shortOfMemory = true;
    }
}

int qlmSetLastError(int code, const wchar_t*, int kind, const wchar_t* message, bool, intptr_t)
{
    reportToThread(code, kind, message);
    return code;
}
