#include "CheckingHost.h"

#include "FuzzInput.h"
#include "TextForms.h"
#include "host/ReportKinds.h"
#include "support/FailingMemory.h"

#include <array>
#include <cmath>
#include <string_view>
#include <vector>

namespace {

enum class Kind : std::uint8_t { Line, Path, Circle, Ellipse, Polyline, Polygon, Text, Use, Symbol, Group };

// How far a group has come: the current node is asked for, set to the group, and set back.
enum class Group { None, Begun, Open };

constexpr int kKinds = DXF_ERROR_MEMORY + 1; // of reports, 0 among them

struct State {
    CheckingHost::Answers answers;
    std::vector<Kind> nodes;
    QlmNode current = nullptr;
    QlmNode outer = nullptr; // what was current before the group that is open
    Group group = Group::None;
    std::uint64_t calls = 0;
    std::array<std::size_t, kKinds> reports{};
};

State state;
char contextNode;

void Mix(std::uint64_t value)
{
    state.calls = (state.calls ^ value) * 0x9E3779B97F4A7C15u;
    state.calls ^= state.calls >> 29;
}

void Mix(const wchar_t* text)
{
    for (; *text != L'\0'; ++text)
        Mix(static_cast<std::uint64_t>(*text));
    Mix(std::uint64_t{0});
}

void Mix(float value)
{
    std::uint32_t bits = 0x7FC00000; // one for all that is not a number
    if (value == value)
        std::memcpy(&bits, &value, sizeof(bits));
    Mix(std::uint64_t{bits});
}

// A handle is the node's number, counted from 1, in a form that no address has.
constexpr std::uintptr_t kHandle = 16;

QlmNode HandleOf(std::size_t number)
{
    return reinterpret_cast<QlmNode>(number * kHandle + 1);
}

// The kind of a node that was given out.
Kind KindOf(QlmNode node)
{
    const std::uintptr_t value = reinterpret_cast<std::uintptr_t>(node);
    FuzzRequire(value % kHandle == 1 && value / kHandle >= 1 && value / kHandle <= state.nodes.size(),
                "a node is one that the host gave out");
    return state.nodes[value / kHandle - 1];
}

void RequireContext(QlmNode context)
{
    FuzzRequire(context == &contextNode, "the context node is the one that was given");
}

void RequireText(const wchar_t* text)
{
    FuzzRequire(text != nullptr && IsWellFormed(text), "a text is well formed");
    Mix(text);
}

// What every creating operation has to hold to.
template <class... Zeros>
QlmNode Create(Kind kind, QlmNode context, const wchar_t* id, Zeros... zeros)
{
    const FailingMemory::Pause pause; // memory fails the module, not its host
    RequireContext(context);
    FuzzRequire(id != nullptr && *id == L'\0', "the identifier is empty");
    FuzzRequire(((zeros == 0) && ...), "a number that is always 0 is 0");
    Mix(static_cast<std::uint64_t>(kind));
    if (state.answers.refusesAll || (kind == Kind::Symbol && state.answers.refusesSymbols))
        return nullptr;
    state.nodes.push_back(kind);
    return HandleOf(state.nodes.size());
}

bool IsArrow(std::wstring_view name)
{
    return name == L"pg-begin-arrow-type" || name == L"pg-end-arrow-type" || name == L"pg-begin-arrow-size" ||
           name == L"pg-end-arrow-size";
}

bool IsStyled(Kind kind)
{
    return kind != Kind::Text && kind != Kind::Use && kind != Kind::Symbol && kind != Kind::Group;
}

// Whether an element of the kind may have the attribute with that value.
bool IsAttributeOf(Kind kind, std::wstring_view name, std::wstring_view value)
{
    if (name == L"stroke")
        return (IsStyled(kind) || kind == Kind::Text) && IsColour(value);
    if (name == L"stroke-width")
        return IsStyled(kind) && (value == L"1" || IsPositiveFixed6(value));
    if (name == L"stroke-dasharray")
        return IsStyled(kind) && IsDashArray(value);
    if (name == L"visibility")
        return IsStyled(kind) && value == L"hidden";
    if (name == L"fill-opacity")
        return (kind == Kind::Circle || kind == Kind::Ellipse || kind == Kind::Polygon) && value == L"0";
    if (name == L"center-x" || name == L"center-y")
        return (kind == Kind::Ellipse || kind == Kind::Path) && IsFixed(value, 6);
    if (name == L"rotate")
        return kind == Kind::Text
                   ? IsGeneral(value)
                   : (kind == Kind::Use || kind == Kind::Ellipse || kind == Kind::Path) && IsFixed(value, 6);
    if (name == L"scale-x" || name == L"scale-y")
        return kind == Kind::Use && IsFixed(value, 6);
    if (name == L"font-size")
        return kind == Kind::Text && IsWidth4Fixed2(value);
    if (name == L"text-anchor")
        return kind == Kind::Text &&
               (value == L"middle" || value == L"end" || value == L"left" || value == L"right");
    return IsArrow(name) && kind == Kind::Line &&
           value == (name.ends_with(L"type") ? std::wstring_view(L"stealth arrow") : std::wstring_view(L"1"));
}

bool IsAttribute(std::wstring_view name)
{
    constexpr std::wstring_view kNames[] = {
        L"stroke",   L"stroke-width", L"stroke-dasharray", L"visibility", L"fill-opacity", L"center-x",
        L"center-y", L"rotate",       L"scale-x",          L"scale-y",    L"font-size",    L"text-anchor"};
    return IsArrow(name) || std::find(std::begin(kNames), std::end(kNames), name) != std::end(kNames);
}

template <class... Numbers>
QlmNode Mixed(QlmNode node, Numbers... numbers)
{
    (Mix(static_cast<float>(numbers)), ...);
    FuzzRequire(!state.answers.isFinite || (std::isfinite(numbers) && ...),
                "numbers of a drawing of small numbers are finite");
    return node;
}

} // namespace

void CheckingHost::Reset(Answers answers)
{
    state.answers = answers;
    state.nodes.clear(); // its room is kept
    state.current = state.outer = nullptr;
    state.group = Group::None;
    state.calls = 1;
    state.reports.fill(0);
}

QlmNode CheckingHost::Context()
{
    return &contextNode;
}

void CheckingHost::RequireDone()
{
    FuzzRequire(state.current == nullptr && state.group == Group::None,
                "the current node is the default place again");
}

std::uint64_t CheckingHost::Calls()
{
    return state.calls;
}

std::size_t CheckingHost::Reports(int kind)
{
    return state.reports[static_cast<std::size_t>(kind)];
}

QlmNode qlmCreateLine(QlmNode context, const wchar_t* id, float x1, float y1, float x2, float y2, float zero1,
                      float zero2)
{
    return Mixed(Create(Kind::Line, context, id, zero1, zero2), x1, y1, x2, y2);
}

QlmNode qlmCreatePath(QlmNode context, const wchar_t* id, const wchar_t* data, float zero1, float zero2)
{
    RequireText(data);
    FuzzRequire(IsArcPath(data), "path data is a move and an arc");
    return Create(Kind::Path, context, id, zero1, zero2);
}

QlmNode qlmCreateCircle(QlmNode context, const wchar_t* id, float radius, float centerX, float centerY,
                        float zero1, float zero2)
{
    return Mixed(Create(Kind::Circle, context, id, zero1, zero2), radius, centerX, centerY);
}

QlmNode qlmCreateEllipse(QlmNode context, const wchar_t* id, float radiusX, float radiusY, float centerX,
                         float centerY, float zero1, float zero2)
{
    return Mixed(Create(Kind::Ellipse, context, id, zero1, zero2), radiusX, radiusY, centerX, centerY);
}

QlmNode qlmCreatePolyline(QlmNode context, const wchar_t* id, const wchar_t* points, float zero1, float zero2)
{
    RequireText(points);
    FuzzRequire(IsPoints(points), "points are pairs of numbers");
    return Create(Kind::Polyline, context, id, zero1, zero2);
}

QlmNode qlmCreatePolygon(QlmNode context, const wchar_t* id, const wchar_t* points, float zero1, float zero2)
{
    RequireText(points);
    FuzzRequire(IsPoints(points), "points are pairs of numbers");
    return Create(Kind::Polygon, context, id, zero1, zero2);
}

QlmNode qlmCreateText(QlmNode context, const wchar_t* id, float firstX, float firstY, float zero1,
                      float zero2, const wchar_t* text, float secondX, float secondY)
{
    RequireText(text);
    FuzzRequire((firstX == 0 && firstY == 0) || (secondX == 0 && secondY == 0), "one of the positions is 0");
    return Mixed(Create(Kind::Text, context, id, zero1, zero2), firstX, firstY, secondX, secondY);
}

QlmNode qlmCreateUse(QlmNode context, const wchar_t* id, float zero1, float zero2, const wchar_t* name,
                     const wchar_t* kind, float x, float y)
{
    RequireText(name);
    FuzzRequire(std::wstring_view(kind) == L"hmi", "the kind of a use is always the same");
    return Mixed(Create(Kind::Use, context, id, zero1, zero2), x, y);
}

QlmNode qlmCreateSymbol(QlmNode context, const wchar_t* name)
{
    RequireText(name);
    FuzzRequire(state.current == nullptr, "a symbol is made at the default place");
    return Create(Kind::Symbol, context, L"");
}

QlmNode qlmCreateG(QlmNode context, const wchar_t* id)
{
    return Create(Kind::Group, context, id);
}

QlmNode qlmGetCurrentSvgNode(QlmNode context)
{
    RequireContext(context);
    FuzzRequire(state.group == Group::None, "no group begins within another");
    state.outer = state.current;
    state.group = Group::Begun;
    return state.current;
}

void qlmSetCurrentSvgNode(QlmNode context, QlmNode node)
{
    RequireContext(context);
    const bool isNewest = node != nullptr && node == HandleOf(state.nodes.size());
    switch (state.group) {
    case Group::None: // a symbol, or the end of one
        FuzzRequire(node == nullptr || (isNewest && KindOf(node) == Kind::Symbol),
                    "a symbol is filled at once");
        break;
    case Group::Begun:
        FuzzRequire(node == nullptr ? state.answers.refusesAll : isNewest && KindOf(node) == Kind::Group,
                    "a group is filled at once");
        state.group = Group::Open;
        break;
    case Group::Open:
        FuzzRequire(node == state.outer, "the node before a group is current again");
        state.group = Group::None;
        break;
    }
    state.current = node;
    Mix(reinterpret_cast<std::uintptr_t>(node));
}

void qlmSetAttributeByNode(QlmNode context, QlmNode node, const wchar_t* name, const wchar_t* value)
{
    RequireContext(context);
    RequireText(name);
    RequireText(value);
    const bool isRefused = node == nullptr && state.answers.refusesAll;
    FuzzRequire(isRefused || node == HandleOf(state.nodes.size()), "an attribute is the newest element's");
    FuzzRequire(isRefused ? IsAttribute(name) : IsAttributeOf(KindOf(node), name, value),
                "an attribute belongs to its element and has a value of its form");
    Mix(reinterpret_cast<std::uintptr_t>(node));
}

int qlmSetLastError(int code, const wchar_t* source, int kind, const wchar_t* message, bool unused,
                    intptr_t extra)
{
    RequireText(message);
    FuzzRequire(std::wstring_view(source) == L"DXF" && !unused && extra == 0, "a report is of its form");
    FuzzRequire(kind >= 1 && kind < kKinds, "a report is of a known kind");
    FuzzRequire(code == (kind == DXF_ERROR_GROUP_CODE ? 1 : 0),
                "the code is 1 for unknown group codes alone");
    FuzzRequire(*message != L'\0', "a report has a message");
    ++state.reports[static_cast<std::size_t>(kind)];
    Mix(static_cast<std::uint64_t>(kind));
    return 0;
}
