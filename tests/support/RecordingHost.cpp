#include "support/RecordingHost.h"

#include "support/FailingMemory.h"
#include "support/ModelTexts.h"

#include <cstdint>
#include <cstdio>

namespace {

void AppendTraceCharacter(std::string& out, std::uint32_t value)
{
    if (value >= 0x20 && value != '"' && value != '\\' && value != 0x7F)
        return AppendModelUtf8(out, value);
    char escaped[8];
    std::snprintf(escaped, sizeof(escaped), "\\x%02X", static_cast<unsigned>(value));
    out += escaped;
}

// Builds the text of one call.
class Call {
public:
    explicit Call(const char* name) : m_text(std::string(name) + "(") {}

    Call& Node(QlmNode node) { return m_isWritten ? Add(RecordingHost::OfThread().NameOf(node)) : *this; }
    Call& Text(const wchar_t* text)
    {
        if (!m_isWritten)
            return *this;
        return Add(text == nullptr ? "null" : '"' + ToTraceText(text) + '"');
    }
    Call& Bool(bool value) { return Add(value ? "true" : "false"); }
    template <class Value>
    Call& Number(Value value)
    {
        if (!m_isWritten)
            return *this;
        if (value != value)
            return Add("nan"); // which sign it has is the machine's affair
        return Add(TextOfNumber(value));
    }
    template <class... Numbers>
    Call& Floats(Numbers... values)
    {
        (Number(values), ...);
        return *this;
    }
    std::string Done() { return m_text + ")"; }

private:
    Call& Add(std::string_view argument)
    {
        if (m_text.back() != '(')
            m_text += ", ";
        m_text += argument;
        return *this;
    }

    const FailingMemory::Pause m_pause; // memory fails the module, not its host
    const bool m_isWritten = !RecordingHost::OfThread().countOnly;
    std::string m_text;
};

QlmNode Created(Call& call)
{
    return RecordingHost::OfThread().RecordNew(call.Done());
}

} // namespace

std::string ToTraceText(std::wstring_view text)
{
    std::string out;
    while (!text.empty())
        AppendTraceCharacter(out, TakeCharacter(text));
    return out;
}

RecordingHost& RecordingHost::OfThread()
{
    thread_local RecordingHost host;
    return host;
}

void RecordingHost::Reset()
{
    *this = RecordingHost();
}

QlmNode RecordingHost::Context()
{
    static char context;
    return &context;
}

std::string RecordingHost::Trace() const
{
    std::string trace;
    for (const std::string& call : calls)
        trace += call + '\n';
    return trace;
}

void RecordingHost::Record(std::string line)
{
    ++callCount;
    if (!countOnly)
        calls.push_back(std::move(line));
    if (onCall)
        onCall();
}

QlmNode RecordingHost::RecordNew(std::string line, bool refused)
{
    if (refused || refuseAll) {
        Record(line + " = 0");
        return nullptr;
    }
    const QlmNode node = reinterpret_cast<QlmNode>(static_cast<std::uintptr_t>(++m_nodes));
    Record(line + " = " + NameOf(node));
    return node;
}

std::string RecordingHost::NameOf(QlmNode node) const
{
    if (node == nullptr)
        return "0";
    return node == context ? "ctx" : "n" + std::to_string(reinterpret_cast<std::uintptr_t>(node));
}

QlmNode qlmCreateLine(QlmNode context, const wchar_t* id, float x1, float y1, float x2, float y2, float zero1,
                      float zero2)
{
    return Created(Call("qlmCreateLine").Node(context).Text(id).Floats(x1, y1, x2, y2, zero1, zero2));
}

QlmNode qlmCreatePath(QlmNode context, const wchar_t* id, const wchar_t* data, float zero1, float zero2)
{
    return Created(Call("qlmCreatePath").Node(context).Text(id).Text(data).Floats(zero1, zero2));
}

QlmNode qlmCreateCircle(QlmNode context, const wchar_t* id, float radius, float centerX, float centerY,
                        float zero1, float zero2)
{
    return Created(
        Call("qlmCreateCircle").Node(context).Text(id).Floats(radius, centerX, centerY, zero1, zero2));
}

QlmNode qlmCreateEllipse(QlmNode context, const wchar_t* id, float radiusX, float radiusY, float centerX,
                         float centerY, float zero1, float zero2)
{
    return Created(Call("qlmCreateEllipse")
                       .Node(context)
                       .Text(id)
                       .Floats(radiusX, radiusY, centerX, centerY, zero1, zero2));
}

QlmNode qlmCreatePolyline(QlmNode context, const wchar_t* id, const wchar_t* points, float zero1, float zero2)
{
    return Created(Call("qlmCreatePolyline").Node(context).Text(id).Text(points).Floats(zero1, zero2));
}

QlmNode qlmCreatePolygon(QlmNode context, const wchar_t* id, const wchar_t* points, float zero1, float zero2)
{
    return Created(Call("qlmCreatePolygon").Node(context).Text(id).Text(points).Floats(zero1, zero2));
}

QlmNode qlmCreateText(QlmNode context, const wchar_t* id, float firstX, float firstY, float zero1,
                      float zero2, const wchar_t* text, float secondX, float secondY)
{
    return Created(Call("qlmCreateText")
                       .Node(context)
                       .Text(id)
                       .Floats(firstX, firstY, zero1, zero2)
                       .Text(text)
                       .Floats(secondX, secondY));
}

QlmNode qlmCreateUse(QlmNode context, const wchar_t* id, float zero1, float zero2, const wchar_t* name,
                     const wchar_t* kind, float x, float y)
{
    return Created(
        Call("qlmCreateUse").Node(context).Text(id).Floats(zero1, zero2).Text(name).Text(kind).Floats(x, y));
}

QlmNode qlmCreateSymbol(QlmNode context, const wchar_t* name)
{
    RecordingHost& host = RecordingHost::OfThread();
    return host.RecordNew(Call("qlmCreateSymbol").Node(context).Text(name).Done(), host.refuseSymbols);
}

QlmNode qlmCreateG(QlmNode context, const wchar_t* id)
{
    return Created(Call("qlmCreateG").Node(context).Text(id));
}

QlmNode qlmGetCurrentSvgNode(QlmNode context)
{
    RecordingHost& host = RecordingHost::OfThread();
    host.Record(Call("qlmGetCurrentSvgNode").Node(context).Done() + " = " + host.NameOf(host.currentNode));
    return host.currentNode;
}

void qlmSetCurrentSvgNode(QlmNode context, QlmNode node)
{
    RecordingHost& host = RecordingHost::OfThread();
    host.Record(Call("qlmSetCurrentSvgNode").Node(context).Node(node).Done());
    host.currentNode = node;
}

void qlmSetAttributeByNode(QlmNode context, QlmNode node, const wchar_t* name, const wchar_t* value)
{
    RecordingHost::OfThread().Record(
        Call("qlmSetAttributeByNode").Node(context).Node(node).Text(name).Text(value).Done());
}

int qlmSetLastError(int code, const wchar_t* source, int kind, const wchar_t* message, bool unused,
                    intptr_t extra)
{
    RecordingHost::OfThread().Record(Call("qlmSetLastError")
                                         .Number(code)
                                         .Text(source)
                                         .Number(kind)
                                         .Text(message)
                                         .Bool(unused)
                                         .Number(extra)
                                         .Done());
    return kind;
}
