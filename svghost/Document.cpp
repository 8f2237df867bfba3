#include "svghost/Document.h"

#include "svghost/NumberText.h"
#include "svghost/PathData.h"
#include "svghost/XmlText.h"

#include <algorithm>
#include <limits>

using namespace svghost;

namespace {

// XML readers refuse elements that are nested some hundreds deep.
constexpr int kDeepestGroup = 64;

// Outside xml:space="preserve" these blanks would be lost.
bool hasBlanksToKeep(std::wstring_view text)
{
    if (text.empty())
        return false;
    return text.front() == L' ' || text.back() == L' ' || text.find(L"  ") != std::wstring_view::npos ||
           text.find_first_of(L"\t\r\n") != std::wstring_view::npos;
}

// An XML reader makes a line feed of a carriage return that stands in a text. Viewers draw a blank for both.
std::string textOf(std::wstring_view text)
{
    std::string utf8 = utf8Of(text);
    std::replace(utf8.begin(), utf8.end(), '\r', '\n');
    return utf8;
}

template <class List, class Item>
void link(List*& first, List*& last, Item& item, Item* List::*next)
{
    if (last)
        last->*next = &item;
    else
        first = &item;
    last = &item;
}

} // namespace

bool SvgHostDocument::hasRoom()
{
    if (mostElements == 0 || elements < mostElements)
        return true;
    ++elementsBeyondLimit;
    return false;
}

void SvgHostDocument::append(Node& node)
{
    link(current->first, current->last, node, &Node::next);
    ++elements;
    m_laidOut = false;
}

Shape* SvgHostDocument::createShape(Kind kind, const wchar_t* data)
{
    Shape* shape = arena.make<Shape>(kind);
    m_scratch.clear();
    const bool good = kind == Kind::Path ? scanPath(data, Affine(), m_scratch, shape->box)
                                         : scanPoints(data, m_scratch, shape->box);
    shape->malformed = !good;
    if (good)
        shape->data = arena.keep(std::string_view(m_scratch));
    append(*shape);
    return shape;
}

Text* SvgHostDocument::createText(float x, float y, const wchar_t* text)
{
    const std::wstring_view source(text);
    Text* node = arena.make<Text>();
    node->x = x;
    node->y = y;
    node->characters = static_cast<std::uint32_t>(countCharacters(source));
    node->keepsBlanks = hasBlanksToKeep(source);
    node->text = arena.keep(std::string_view(textOf(source)));
    append(*node);
    return node;
}

Use* SvgHostDocument::createUse(const wchar_t* name, float x, float y)
{
    Use* use = arena.make<Use>();
    use->x = x;
    use->y = y;
    use->target = symbolName(name);
    Symbol& owner = *current->owner;
    link(owner.firstUse, owner.lastUse, *use, &Use::nextOfSymbol);
    append(*use);
    return use;
}

Symbol* SvgHostDocument::createSymbol(const wchar_t* name)
{
    SymbolName* symbolsName = symbolName(name);
    Symbol* symbol = arena.make<Symbol>();
    symbols.push_back(symbol);
    symbol->name = symbolsName;
    symbol->definition = ++symbolsName->definitions;
    if (!symbolsName->definition)
        symbolsName->definition = symbol;
    ++elements;
    m_laidOut = false;
    return symbol;
}

Container* SvgHostDocument::createGroup()
{
    if (current->depth == kDeepestGroup)
        return nullptr;
    Container* group = arena.make<Container>(Kind::Group);
    group->parent = current;
    group->owner = current->owner;
    group->depth = current->depth + 1;
    append(*group);
    return group;
}

SymbolName* SvgHostDocument::symbolName(const wchar_t* name)
{
    const auto known = m_names.find(name);
    if (known != m_names.end())
        return known->second;
    SymbolName* symbolsName = arena.make<SymbolName>();
    symbolsName->name = arena.keep(std::wstring_view(name));
    m_names.emplace(symbolsName->name, symbolsName);
    return symbolsName;
}

std::uint32_t SvgHostDocument::indexOfValue(AttributeId id, std::wstring_view text)
{
    ValueTable& table = m_values[static_cast<std::size_t>(id)];
    return table.indexOf(text, arena, [&](std::wstring_view source, Value& value) {
        m_scratch.clear();
        bool good = true;
        value.tooLong = id == AttributeId::DashArray && source.size() > kLongestDashArray;
        if (id == AttributeId::Stroke)
            good = resolveStroke(source, m_scratch);
        else if (id == AttributeId::StrokeWidth)
            good = resolveStrokeWidth(source, m_scratch, value.number);
        else if (id == AttributeId::DashArray)
            good = !value.tooLong && resolveDashArray(source, m_scratch, value.dotted);
        else if (id == AttributeId::TextAnchor)
            good = resolveTextAnchor(source, m_scratch);
        else
            m_scratch = utf8Of(source);
        value.dropped = !good || mayFetch(source);
        value.text = arena.keep(std::string_view(m_scratch));
    });
}

ExtraAttribute& SvgHostDocument::extra(Node& node, AttributeId id)
{
    ExtraAttribute** place = &node.extra;
    while (*place && (*place)->id != id)
        place = &(*place)->next;
    if (!*place) {
        *place = arena.make<ExtraAttribute>();
        (*place)->id = id;
    }
    return **place;
}

void SvgHostDocument::setOther(Node& node, std::wstring_view name, std::wstring_view text)
{
    if (!isAttributeNamePart(name))
        return;
    m_scratch.assign("data-").append(utf8Of(name));
    ExtraAttribute** place = &node.extra;
    const auto isThis = [&](const ExtraAttribute& attribute) {
        return attribute.id == AttributeId::Other &&
               static_cast<const OtherAttribute&>(attribute).name == m_scratch;
    };
    while (*place && !isThis(**place))
        place = &(*place)->next;
    const std::string_view kept = arena.keep(std::string_view(utf8Of(text)));
    if (!*place) {
        OtherAttribute* attribute = arena.make<OtherAttribute>();
        attribute->name = arena.keep(std::string_view(m_scratch));
        *place = attribute;
    }
    static_cast<OtherAttribute*>(*place)->text = kept;
}

void SvgHostDocument::setAttribute(Node& node, const wchar_t* name, const wchar_t* text)
{
    m_laidOut = false;
    const AttributeId id = attributeByName(name);
    if (id == AttributeId::Stroke) {
        node.stroke = indexOfValue(id, text);
    } else if (id == AttributeId::StrokeWidth) {
        node.strokeWidth = indexOfValue(id, text);
    } else if (id == AttributeId::DashArray) {
        node.dashArray = indexOfValue(id, dashArrayText(text));
    } else if (id == AttributeId::Other) {
        setOther(node, name, text);
    } else if (id < AttributeId::FontSize) {
        extra(node, id).value = indexOfValue(id, text);
        if (id == AttributeId::Visibility)
            node.hidden = std::wstring_view(text) == L"hidden";
    } else {
        m_scratch.clear();
        double number = 0;
        const bool good = parseNumber(text, number, m_scratch);
        extra(node, id).number = good ? number : std::numeric_limits<double>::quiet_NaN();
    }
}

const Layout& SvgHostDocument::layout()
{
    if (!m_laidOut)
        m_layout = makeLayout(*this);
    m_laidOut = true;
    return m_layout;
}
