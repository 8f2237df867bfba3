// A host that does nothing: what an import costs by itself.
#include "bench/IdleHost.h"

#include "host/QuillmarLib.h"

namespace {

std::size_t g_calls = 0;

QlmNode Node()
{
    static char node;
    ++g_calls;
    return &node;
}

} // namespace

std::size_t TakeIdleHostCalls()
{
    const std::size_t calls = g_calls;
    g_calls = 0;
    return calls;
}

QlmNode qlmCreateLine(QlmNode, const wchar_t*, float, float, float, float, float, float)
{
    return Node();
}
QlmNode qlmCreatePath(QlmNode, const wchar_t*, const wchar_t*, float, float)
{
    return Node();
}
QlmNode qlmCreateCircle(QlmNode, const wchar_t*, float, float, float, float, float)
{
    return Node();
}
QlmNode qlmCreateEllipse(QlmNode, const wchar_t*, float, float, float, float, float, float)
{
    return Node();
}
QlmNode qlmCreatePolyline(QlmNode, const wchar_t*, const wchar_t*, float, float)
{
    return Node();
}
QlmNode qlmCreatePolygon(QlmNode, const wchar_t*, const wchar_t*, float, float)
{
    return Node();
}
QlmNode qlmCreateText(QlmNode, const wchar_t*, float, float, float, float, const wchar_t*, float, float)
{
    return Node();
}
QlmNode qlmCreateUse(QlmNode, const wchar_t*, float, float, const wchar_t*, const wchar_t*, float, float)
{
    return Node();
}
QlmNode qlmCreateSymbol(QlmNode, const wchar_t*)
{
    return Node();
}
QlmNode qlmCreateG(QlmNode, const wchar_t*)
{
    return Node();
}
QlmNode qlmGetCurrentSvgNode(QlmNode)
{
    return Node();
}
void qlmSetCurrentSvgNode(QlmNode, QlmNode)
{
    ++g_calls;
}
void qlmSetAttributeByNode(QlmNode, QlmNode, const wchar_t*, const wchar_t*)
{
    ++g_calls;
}
int qlmSetLastError(int, const wchar_t*, int, const wchar_t*, bool, intptr_t)
{
    ++g_calls;
    return 0;
}
