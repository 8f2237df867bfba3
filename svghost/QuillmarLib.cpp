// The fourteen operations. None of them lets an exception out; a node or context of 0 does nothing.
#include "host/QuillmarLib.h"

#include "svghost/ReportReceiver.h"
#include "svghost/SvgHostDocument.h"

using namespace svghost;

namespace {

// The document of a context node; null for 0 and for any other node.
SvgHostDocument* DocumentOf(QlmNode context)
{
    auto* node = static_cast<Node*>(context);
    return node && node->kind == Kind::Root ? static_cast<Root*>(node)->document : nullptr;
}

const wchar_t* TextOf(const wchar_t* text)
{
    return text ? text : L"";
}

// Calls create(document); 0 without a document, beyond its limit, and when memory is short. An ignored group
// needs no end: the caller sets the current node to what it was before.
template <class Create>
QlmNode Make(QlmNode context, Create create)
{
    SvgHostDocument* document = DocumentOf(context);
    if (!document || !document->HasRoom())
        return nullptr;
    try {
        // A handle is the address of the node, not of what it is derived into.
        Node* node = create(*document);
        return node;
    } catch (...) {
        document->isShortOfMemory = true;
        return nullptr;
    }
}

Ellipse* AppendEllipse(SvgHostDocument& document, Kind kind, Point radius, Point centre)
{
    auto* ellipse = document.arena.New<Ellipse>(kind);
    ellipse->radiusX = static_cast<float>(radius.x);
    ellipse->radiusY = static_cast<float>(radius.y);
    ellipse->centerX = static_cast<float>(centre.x);
    ellipse->centerY = static_cast<float>(centre.y);
    document.Append(*ellipse);
    return ellipse;
}

} // namespace

QlmNode qlmCreateLine(QlmNode context, const wchar_t*, float x1, float y1, float x2, float y2, float, float)
{
    return Make(context, [&](SvgHostDocument& document) {
        auto* line = document.arena.New<Line>();
        line->x1 = x1;
        line->y1 = y1;
        line->x2 = x2;
        line->y2 = y2;
        document.Append(*line);
        return line;
    });
}

QlmNode qlmCreatePath(QlmNode context, const wchar_t*, const wchar_t* data, float, float)
{
    return Make(context,
                [&](SvgHostDocument& document) { return document.CreateShape(Kind::Path, TextOf(data)); });
}

QlmNode qlmCreateCircle(QlmNode context, const wchar_t*, float radius, float centerX, float centerY, float,
                        float)
{
    return Make(context, [&](SvgHostDocument& document) {
        return AppendEllipse(document, Kind::Circle, {radius, radius}, {centerX, centerY});
    });
}

QlmNode qlmCreateEllipse(QlmNode context, const wchar_t*, float radiusX, float radiusY, float centerX,
                         float centerY, float, float)
{
    return Make(context, [&](SvgHostDocument& document) {
        return AppendEllipse(document, Kind::Ellipse, {radiusX, radiusY}, {centerX, centerY});
    });
}

QlmNode qlmCreatePolyline(QlmNode context, const wchar_t*, const wchar_t* points, float, float)
{
    return Make(context, [&](SvgHostDocument& document) {
        return document.CreateShape(Kind::Polyline, TextOf(points));
    });
}

QlmNode qlmCreatePolygon(QlmNode context, const wchar_t*, const wchar_t* points, float, float)
{
    return Make(context, [&](SvgHostDocument& document) {
        return document.CreateShape(Kind::Polygon, TextOf(points));
    });
}

QlmNode qlmCreateText(QlmNode context, const wchar_t*, float firstX, float firstY, float, float,
                      const wchar_t* text, float secondX, float secondY)
{
    return Make(context, [&](SvgHostDocument& document) {
        return document.CreateText(firstX + secondX, firstY + secondY, TextOf(text));
    });
}

QlmNode qlmCreateUse(QlmNode context, const wchar_t*, float, float, const wchar_t* name, const wchar_t*,
                     float x, float y)
{
    return Make(context, [&](SvgHostDocument& document) { return document.CreateUse(TextOf(name), x, y); });
}

QlmNode qlmCreateSymbol(QlmNode context, const wchar_t* name)
{
    return Make(context, [&](SvgHostDocument& document) { return document.CreateSymbol(TextOf(name)); });
}

QlmNode qlmCreateG(QlmNode context, const wchar_t*)
{
    return Make(context, [&](SvgHostDocument& document) { return document.CreateGroup(); });
}

QlmNode qlmGetCurrentSvgNode(QlmNode context)
{
    const SvgHostDocument* document = DocumentOf(context);
    if (!document || document->current == &document->root)
        return nullptr;
    return static_cast<Node*>(document->current);
}

void qlmSetCurrentSvgNode(QlmNode context, QlmNode node)
{
    SvgHostDocument* document = DocumentOf(context);
    if (!document)
        return;
    auto* target = static_cast<Node*>(node);
    if (!target)
        document->current = &document->root;
    else if (IsContainer(*target))
        document->current = static_cast<Container*>(target);
}

void qlmSetAttributeByNode(QlmNode context, QlmNode node, const wchar_t* name, const wchar_t* value)
{
    SvgHostDocument* document = DocumentOf(context);
    if (!document || !node || node == context)
        return;
    try {
        document->SetAttribute(*static_cast<Node*>(node), TextOf(name), TextOf(value));
    } catch (...) {
        document->isShortOfMemory = true;
    }
}

int qlmSetLastError(int code, const wchar_t*, int kind, const wchar_t* message, bool, intptr_t)
{
    ReportToThread(code, kind, message);
    return code;
}
