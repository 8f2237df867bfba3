// The nodes of a document. They live in the document's arena; lists run in the order of creation.
#pragma once

#include "svghost/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

struct SvgHostDocument;

namespace svghost {

enum class Kind : std::uint8_t {
    Line,
    Path,
    Circle,
    Ellipse,
    Polyline,
    Polygon,
    Text,
    Use,
    Symbol,
    Group,
    Root
};

// The attributes that the host knows. Those up to DashArray are in every node, the others in its list.
enum class AttributeId : std::uint8_t {
    StrokeWidth,
    Stroke,
    DashArray,
    FillOpacity,
    Visibility,
    TextAnchor,
    BeginArrowType,
    EndArrowType,
    FontSize,
    CenterX,
    CenterY,
    Rotate,
    ScaleX,
    ScaleY,
    BeginArrowSize,
    EndArrowSize,
    Other
};

// An attribute that few elements have. Value 0 of a text attribute means that it is not written.
struct ExtraAttribute {
    ExtraAttribute* next = nullptr;
    AttributeId id = AttributeId::Other;
    std::uint32_t value = 0; // of a text attribute: its index among the document's values
    double number = 0;       // of the attributes from FontSize to EndArrowSize; may be a NaN
};

// An attribute that the host does not know, written as data-name.
struct OtherAttribute : ExtraAttribute {
    std::string_view name; // "data-" and so on, followed by a zero
    std::string_view text; // in UTF-8
};

struct Node {
    explicit Node(Kind nodeKind) : kind(nodeKind) {}

    Node* next = nullptr;
    ExtraAttribute* extra = nullptr;
    std::uint32_t strokeWidth = 0; // indices among the document's values, 0: not set
    std::uint32_t stroke = 0;
    std::uint32_t dashArray = 0;
    Kind kind;
    bool isHidden : 1 = false;
    bool isMalformed : 1 = false; // a number of its geometry is not drawable
    bool isLeftOut : 1 = false;   // not written; decided by the layout
    std::uint16_t layer = 0;      // the layer that begins before it, by the number of its mark; 0: none does

    const ExtraAttribute* Find(AttributeId id) const
    {
        const ExtraAttribute* attribute = extra;
        while (attribute && attribute->id != id)
            attribute = attribute->next;
        return attribute;
    }
    double Number(AttributeId id, double otherwise) const
    {
        const ExtraAttribute* attribute = Find(id);
        return attribute ? attribute->number : otherwise;
    }
};

struct Line : Node {
    Line() : Node(Kind::Line) {}
    float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
};

// A circle has equal radii.
struct Ellipse : Node {
    explicit Ellipse(Kind nodeKind) : Node(nodeKind) {}
    float radiusX = 0, radiusY = 0, centerX = 0, centerY = 0;
};

// Path, polyline or polygon: its data as it is written, and the box round it.
struct Shape : Node {
    explicit Shape(Kind nodeKind) : Node(nodeKind) {}
    std::string_view data;
    Box box;
};

struct Text : Node {
    Text() : Node(Kind::Text) {}
    float x = 0, y = 0;
    std::string_view text; // in UTF-8
    std::uint32_t characters = 0;
    std::uint32_t ideographs = 0; // of the characters, those that are an em wide
    bool keepsBlanks = false;
};

struct Symbol;

// A name that symbols have or uses refer to.
struct SymbolName {
    std::wstring_view name;
    Symbol* definition = nullptr; // the first symbol of that name
    std::size_t definitions = 0;
    std::size_t uses = 0;
};

struct Use : Node {
    Use() : Node(Kind::Use) {}
    float x = 0, y = 0;
    SymbolName* target = nullptr;
    Use* nextOfSymbol = nullptr;
};

struct Container : Node {
    explicit Container(Kind nodeKind) : Node(nodeKind) {}
    Node* first = nullptr;
    Node* last = nullptr;
    Container* parent = nullptr; // of a group; symbols and the root have none
    Symbol* owner = nullptr;     // the symbol or root that holds the group, or the thing itself
    int depth = 0;               // of groups within each other
};

struct Symbol : Container {
    explicit Symbol(Kind nodeKind = Kind::Symbol) : Container(nodeKind) { owner = this; }
    SymbolName* name = nullptr;
    std::size_t definition = 0; // counted from 1 among the symbols of that name
    Use* firstUse = nullptr;
    Use* lastUse = nullptr;
    std::uint16_t mark = 0;      // its number among the marks of layers that are used, from 1
    std::uint16_t nextLayer = 0; // the mark that was used last, before the next node
    // Filled by the layout.
    bool isFill = false;       // drawn as one area
    bool isWriting = false;    // drawn as one line of writing
    std::uint32_t visited = 0; // when the search for cycles came here, from 1
    std::uint32_t lowest = 0;  // the earliest visit that can be reached from here
    std::uint32_t cycle = 0;   // symbols that reach each other have the same number, from 1
    std::uint32_t nesting = 0; // how many levels of uses it takes to draw it, itself counted
    std::size_t rendered = 0;  // elements in a viewer's tree when it is drawn once
    double smallestScale = 1;  // of all that is drawn in it, through uses
    double largestScale = 1;
    std::size_t visible = 0; // elements that show something
    Box box;                 // of what is drawn in it, the widths of strokes taken as lengths
    Box bare;                // the same without the strokes
    double widest = 0;       // the widest stroke of its own elements
    double shown = 0;        // how many times the picture shows it
    double meanScale = 1;    // at which it is shown, a geometric mean
    double greatestScale = 1;
};

// The top of the drawing; its address is the context node.
struct Root : Symbol {
    explicit Root(SvgHostDocument& owningDocument) : Symbol(Kind::Root), document(&owningDocument) {}
    SvgHostDocument* document;
};

inline bool IsContainer(const Node& node)
{
    return node.kind >= Kind::Symbol;
}

// Walks over everything in top in order, groups entered. enter(node) is called for every node, leave(group)
// after the last node of a group. Needs no stack however deep groups are.
template <class Enter, class Leave>
void Walk(const Container& top, Enter enter, Leave leave)
{
    const Container* within = &top;
    Node* node = top.first;
    while (node || within != &top) {
        if (!node) {
            leave(*within);
            node = within->next;
            within = within->parent;
            continue;
        }
        enter(*node);
        if (IsContainer(*node)) {
            within = static_cast<Container*>(node);
            node = within->first;
        } else {
            node = node->next;
        }
    }
}

} // namespace svghost
