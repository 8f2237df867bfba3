#include "svghost/SvgHostDocument.h"

#include "svghost/DrawableNumbers.h"
#include "svghost/XmlText.h"

#include <algorithm>
#include <limits>
#include <utility>

using namespace svghost;

namespace {

// XML readers refuse elements that are nested some hundreds deep.
constexpr int kDeepestGroup = 64;

// Outside xml:space="preserve" these blanks would be lost.
bool HasBlanksToKeep(std::wstring_view text)
{
    if (text.empty())
        return false;
    return text.front() == L' ' || text.back() == L' ' || text.find(L"  ") != std::wstring_view::npos ||
           text.find_first_of(L"\t\r\n") != std::wstring_view::npos;
}

// An XML reader makes a line feed of a carriage return in a text. Viewers draw a blank for both.
std::string TextOf(std::wstring_view text)
{
    std::string utf8 = XmlTextOf(text);
    std::replace(utf8.begin(), utf8.end(), '\r', '\n');
    return utf8;
}

template <class List, class Item>
void Link(List*& first, List*& last, Item& item, Item* List::*next)
{
    if (last)
        last->*next = &item;
    else
        first = &item;
    last = &item;
}

} // namespace

bool SvgHostDocument::HasRoom()
{
    if (mostElements == 0 || elements < mostElements)
        return true;
    ++elementsBeyondLimit;
    return false;
}

void SvgHostDocument::Append(Node& node)
{
    if (current->kind != Kind::Group)
        node.layer = std::exchange(static_cast<Symbol*>(current)->nextLayer, std::uint16_t{0});
    Link(current->first, current->last, node, &Node::next);
    ++elements;
    m_isLaidOut = false;
}

Shape* SvgHostDocument::CreateShape(Kind kind, const wchar_t* data)
{
    Shape* shape = arena.New<Shape>(kind);
    m_shortForm.Clear();
    const std::wstring_view text(data);
    const bool isGood = kind == Kind::Path
                            ? m_pathText.Set(text) && ScanPath(m_pathText, Affine(), m_shortForm, shape->box)
                            : ScanPoints(text, m_pathText, m_shortForm, shape->box);
    shape->isMalformed = !isGood;
    if (isGood)
        shape->data = arena.Copy(m_shortForm.Get());
    Append(*shape);
    return shape;
}

Text* SvgHostDocument::CreateText(float x, float y, const wchar_t* text)
{
    const std::wstring_view source(text);
    Text* node = arena.New<Text>();
    node->x = x;
    node->y = y;
    node->characters = static_cast<std::uint32_t>(CountCharacters(source));
    if (widensIdeographs)
        node->ideographs = static_cast<std::uint32_t>(CountIdeographs(source));
    node->keepsBlanks = HasBlanksToKeep(source);
    node->text = arena.Copy(std::string_view(TextOf(source)));
    Append(*node);
    return node;
}

// A drawing has about as many marks as elements: they are kept in the nodes after them, beyond groups and as
// long as their numbers fit. All others are ordinary uses.
bool SvgHostDocument::TakeMark(SymbolName& target)
{
    Symbol* const mark = target.definition;
    if (current->kind == Kind::Group || !mark || mark == current || !IsLayerMark(*mark))
        return false;
    if (mark->mark == 0) {
        if (m_marks.size() == std::numeric_limits<std::uint16_t>::max())
            return false;
        m_marks.push_back(mark);
        mark->mark = static_cast<std::uint16_t>(m_marks.size());
    }
    static_cast<Symbol*>(current)->nextLayer = mark->mark;
    ++elements;
    m_isLaidOut = false;
    return true;
}

Use* SvgHostDocument::CreateUse(const wchar_t* name, float x, float y)
{
    SymbolName* const target = SymbolNamed(name);
    if (TakeMark(*target))
        return &m_mark;
    Use* use = arena.New<Use>();
    use->x = x;
    use->y = y;
    use->target = target;
    ++target->uses;
    Symbol& owner = *current->owner;
    Link(owner.firstUse, owner.lastUse, *use, &Use::nextOfSymbol);
    Append(*use);
    return use;
}

Symbol* SvgHostDocument::CreateSymbol(const wchar_t* name)
{
    SymbolName* symbolsName = SymbolNamed(name);
    Symbol* symbol = arena.New<Symbol>();
    symbols.push_back(symbol);
    symbol->name = symbolsName;
    symbol->definition = ++symbolsName->definitions;
    if (!symbolsName->definition)
        symbolsName->definition = symbol;
    ++elements;
    m_isLaidOut = false;
    return symbol;
}

Container* SvgHostDocument::CreateGroup()
{
    if (current->depth == kDeepestGroup)
        return nullptr;
    Container* group = arena.New<Container>(Kind::Group);
    group->parent = current;
    group->owner = current->owner;
    group->depth = current->depth + 1;
    Append(*group);
    return group;
}

SymbolName* SvgHostDocument::SymbolNamed(const wchar_t* name)
{
    const auto known = m_names.find(name);
    if (known != m_names.end())
        return known->second;
    SymbolName* symbolsName = arena.New<SymbolName>();
    symbolsName->name = arena.Copy(std::wstring_view(name));
    m_names.emplace(symbolsName->name, symbolsName);
    return symbolsName;
}

std::uint32_t SvgHostDocument::IndexOfValue(AttributeId id, std::wstring_view text)
{
    ValueTable& table = m_values[static_cast<std::size_t>(id)];
    return table.IndexOf(text, arena, [&](std::wstring_view source, Value& value) {
        m_scratch.clear();
        bool isGood = true;
        value.isTooLong = id == AttributeId::DashArray && source.size() > kLongestDashArray;
        if (id == AttributeId::Stroke)
            isGood = ResolveStroke(source, m_scratch);
        else if (id == AttributeId::StrokeWidth)
            isGood = ResolveStrokeWidth(source, m_scratch, value.number);
        else if (id == AttributeId::DashArray)
            isGood = !value.isTooLong && ResolveDashArray(source, m_scratch, value.isDotted);
        else if (id == AttributeId::TextAnchor)
            isGood = ResolveTextAnchor(source, m_scratch);
        else
            m_scratch = XmlTextOf(source);
        value.isDropped = !isGood || MayFetch(source);
        value.text = arena.Copy(std::string_view(EscapedForAttribute(m_scratch)));
    });
}

ExtraAttribute& SvgHostDocument::Extra(Node& node, AttributeId id)
{
    ExtraAttribute** place = &node.extra;
    while (*place && (*place)->id != id)
        place = &(*place)->next;
    if (!*place) {
        *place = arena.New<ExtraAttribute>();
        (*place)->id = id;
    }
    return **place;
}

void SvgHostDocument::SetOther(Node& node, std::wstring_view name, std::wstring_view text)
{
    if (!IsAttributeNamePart(name))
        return;
    m_scratch.assign("data-").append(XmlTextOf(name));
    ExtraAttribute** place = &node.extra;
    const auto isThis = [&](const ExtraAttribute& attribute) {
        return attribute.id == AttributeId::Other &&
               static_cast<const OtherAttribute&>(attribute).name == m_scratch;
    };
    while (*place && !isThis(**place))
        place = &(*place)->next;
    const std::string_view kept = arena.Copy(std::string_view(XmlTextOf(text)));
    if (!*place) {
        OtherAttribute* attribute = arena.New<OtherAttribute>();
        attribute->name = arena.Copy(std::string_view(m_scratch));
        *place = attribute;
    }
    static_cast<OtherAttribute*>(*place)->text = kept;
}

void SvgHostDocument::SetAttribute(Node& node, const wchar_t* name, const wchar_t* text)
{
    m_isLaidOut = false;
    const AttributeId id = AttributeByName(name);
    if (id == AttributeId::Stroke) {
        node.stroke = IndexOfValue(id, text);
    } else if (id == AttributeId::StrokeWidth) {
        node.strokeWidth = IndexOfValue(id, text);
    } else if (id == AttributeId::DashArray) {
        node.dashArray = IndexOfValue(id, DashArrayText(text));
    } else if (id == AttributeId::Other) {
        SetOther(node, name, text);
    } else if (id < AttributeId::FontSize) {
        Extra(node, id).value = IndexOfValue(id, text);
        if (id == AttributeId::Visibility)
            node.isHidden = std::wstring_view(text) == L"hidden";
    } else {
        double number = 0;
        std::wstring_view shortText;
        const bool isGood = ParseNumber(text, number, shortText);
        Extra(node, id).number = isGood ? number : std::numeric_limits<double>::quiet_NaN();
    }
}

const PictureLayout& SvgHostDocument::LaidOut()
{
    if (!m_isLaidOut)
        m_layout = MakeLayout(*this);
    m_isLaidOut = true;
    return m_layout;
}
