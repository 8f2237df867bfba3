#include "RecordingHost.h"

#include "printing.h"

#include <stdlib.h>

/* What a host keeps for each context: here a place to print to, how many nodes there are, and the position.
 */
typedef struct Context {
    FILE* out;
    uintptr_t nodes;
    QlmNode current;
} Context;

/* Where reports of this thread go. Two imports at once, on two threads, do not meet. */
static _Thread_local FILE* reports;

QlmNode recordingHostCreate(FILE* out)
{
    Context* context = calloc(1, sizeof(Context));
    if (context)
        context->out = reports = out;
    return context;
}

void recordingHostDestroy(QlmNode context)
{
    reports = NULL;
    free(context);
}

/* A handle needs not be an address: the module only passes it on. */
static QlmNode nodeOfNumber(uintptr_t number)
{
    return (QlmNode)number;
}

/* The end of a creating call's line, and its result. */
static QlmNode created(QlmNode context)
{
    Context* its = context;
    fprintf(its->out, ") = %ju\n", (uintmax_t)++its->nodes);
    return nodeOfNumber(its->nodes);
}

static FILE* begin(QlmNode context, const char* operation)
{
    FILE* out = ((Context*)context)->out;
    fprintf(out, "%s(context", operation);
    return out;
}

static void printNode(FILE* out, QlmNode node)
{
    fprintf(out, ", %ju", (uintmax_t)(uintptr_t)node);
}

QlmNode qlmCreateLine(QlmNode context, const wchar_t* id, float x1, float y1, float x2, float y2, float zero1,
                      float zero2)
{
    FILE* out = begin(context, "qlmCreateLine");
    printText(out, id);
    printFloats(out, 6, x1, y1, x2, y2, zero1, zero2);
    return created(context);
}

QlmNode qlmCreatePath(QlmNode context, const wchar_t* id, const wchar_t* data, float zero1, float zero2)
{
    FILE* out = begin(context, "qlmCreatePath");
    printText(out, id);
    printText(out, data);
    printFloats(out, 2, zero1, zero2);
    return created(context);
}

QlmNode qlmCreateCircle(QlmNode context, const wchar_t* id, float radius, float centerX, float centerY,
                        float zero1, float zero2)
{
    FILE* out = begin(context, "qlmCreateCircle");
    printText(out, id);
    printFloats(out, 5, radius, centerX, centerY, zero1, zero2);
    return created(context);
}

QlmNode qlmCreateEllipse(QlmNode context, const wchar_t* id, float radiusX, float radiusY, float centerX,
                         float centerY, float zero1, float zero2)
{
    FILE* out = begin(context, "qlmCreateEllipse");
    printText(out, id);
    printFloats(out, 6, radiusX, radiusY, centerX, centerY, zero1, zero2);
    return created(context);
}

QlmNode qlmCreatePolyline(QlmNode context, const wchar_t* id, const wchar_t* points, float zero1, float zero2)
{
    FILE* out = begin(context, "qlmCreatePolyline");
    printText(out, id);
    printText(out, points);
    printFloats(out, 2, zero1, zero2);
    return created(context);
}

QlmNode qlmCreatePolygon(QlmNode context, const wchar_t* id, const wchar_t* points, float zero1, float zero2)
{
    FILE* out = begin(context, "qlmCreatePolygon");
    printText(out, id);
    printText(out, points);
    printFloats(out, 2, zero1, zero2);
    return created(context);
}

QlmNode qlmCreateText(QlmNode context, const wchar_t* id, float firstX, float firstY, float zero1,
                      float zero2, const wchar_t* text, float secondX, float secondY)
{
    FILE* out = begin(context, "qlmCreateText");
    printText(out, id);
    printFloats(out, 4, firstX, firstY, zero1, zero2);
    printText(out, text);
    printFloats(out, 2, secondX, secondY);
    return created(context);
}

QlmNode qlmCreateUse(QlmNode context, const wchar_t* id, float zero1, float zero2, const wchar_t* name,
                     const wchar_t* kind, float x, float y)
{
    FILE* out = begin(context, "qlmCreateUse");
    printText(out, id);
    printFloats(out, 2, zero1, zero2);
    printText(out, name);
    printText(out, kind);
    printFloats(out, 2, x, y);
    return created(context);
}

QlmNode qlmCreateSymbol(QlmNode context, const wchar_t* name)
{
    FILE* out = begin(context, "qlmCreateSymbol");
    printText(out, name);
    return created(context);
}

QlmNode qlmCreateG(QlmNode context, const wchar_t* id)
{
    FILE* out = begin(context, "qlmCreateG");
    printText(out, id);
    return created(context);
}

QlmNode qlmGetCurrentSvgNode(QlmNode context)
{
    const Context* its = context;
    fprintf(begin(context, "qlmGetCurrentSvgNode"), ") = %ju\n", (uintmax_t)(uintptr_t)its->current);
    return its->current;
}

void qlmSetCurrentSvgNode(QlmNode context, QlmNode node)
{
    FILE* out = begin(context, "qlmSetCurrentSvgNode");
    printNode(out, node);
    fputs(")\n", out);
    ((Context*)context)->current = node;
}

void qlmSetAttributeByNode(QlmNode context, QlmNode node, const wchar_t* name, const wchar_t* value)
{
    FILE* out = begin(context, "qlmSetAttributeByNode");
    printNode(out, node);
    printText(out, name);
    printText(out, value);
    fputs(")\n", out);
}

int qlmSetLastError(int code, const wchar_t* source, int kind, const wchar_t* message, bool unused,
                    intptr_t extra)
{
    if (!reports)
        return code;
    fprintf(reports, "qlmSetLastError(%d", code);
    printText(reports, source);
    fprintf(reports, ", %d", kind);
    printText(reports, message);
    fprintf(reports, ", %s, %jd)\n", unused ? "true" : "false", (intmax_t)extra);
    return code;
}
