// The document: the tree that the operations build.
#pragma once

#include "base/CDxfArena.h"
#include "svghost/Attributes.h"
#include "svghost/ErrorLog.h"
#include "svghost/LayerMarks.h"
#include "svghost/Node.h"
#include "svghost/PathData.h"
#include "svghost/PictureLayout.h"
#include "svghost/TextHash.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// One document with all its nodes. Its functions throw std::bad_alloc when memory is short; the operations
// catch it and set isShortOfMemory, so that a drawing with holes is never written as if it were whole.
struct SvgHostDocument {
    CDxfArena arena;
    svghost::Root root{*this};
    svghost::Container* current = &root;
    std::vector<svghost::Symbol*> symbols; // all of them, in the order of creation
    // Shared with the threads that report into it, so a late report finds no document instead of a destroyed
    // one.
    std::shared_ptr<svghost::ErrorLog> errors = std::make_shared<svghost::ErrorLog>();
    std::size_t elements = 0;
    std::size_t mostElements = 0; // 0: any number
    std::size_t elementsBeyondLimit = 0;
    std::size_t elementsBeyondBytes = 0; // of the file that was written last
    bool isShortOfMemory = false;
    bool widensIdeographs = false;

    SvgHostDocument() = default;
    SvgHostDocument(const SvgHostDocument&) = delete;
    SvgHostDocument& operator=(const SvgHostDocument&) = delete;

    // Whether there may be one element more; counts each that may not be.
    bool HasRoom();
    // Appends a new node to the current container.
    void Append(svghost::Node& node);
    svghost::Shape* CreateShape(svghost::Kind kind, const wchar_t* data);
    svghost::Text* CreateText(float x, float y, const wchar_t* text);
    svghost::Use* CreateUse(const wchar_t* name, float x, float y);
    svghost::Symbol* CreateSymbol(const wchar_t* name);
    // Null when groups would be too deep within each other for XML readers.
    svghost::Container* CreateGroup();

    // Sets the attribute, in the place of an earlier value.
    void SetAttribute(svghost::Node& node, const wchar_t* name, const wchar_t* text);

    // The value of a text attribute (one before FontSize) by the index that a node holds.
    const svghost::Value& ValueOf(svghost::AttributeId id, std::uint32_t index) const
    {
        return m_values[static_cast<std::size_t>(id)].At(index);
    }

    // All values of a text attribute; the first is of no element.
    const svghost::ValueTable& Values(svghost::AttributeId id) const
    {
        return m_values[static_cast<std::size_t>(id)];
    }

    // The mark of the layer that begins at the node, which may be the mark's own use; null where none does.
    const svghost::Symbol* MarkAt(const svghost::Node& node) const
    {
        const svghost::Symbol* const own = svghost::LayerMarkOf(node);
        return own || node.layer == 0 ? own : m_marks[node.layer - 1u];
    }

    // The picture's layout, made again when the tree has changed since the last call.
    const svghost::PictureLayout& LaidOut();

private:
    std::uint32_t IndexOfValue(svghost::AttributeId id, std::wstring_view text);
    svghost::ExtraAttribute& Extra(svghost::Node& node, svghost::AttributeId id);
    void SetOther(svghost::Node& node, std::wstring_view name, std::wstring_view text);
    svghost::SymbolName* SymbolNamed(const wchar_t* name);
    bool TakeMark(svghost::SymbolName& target);

    std::array<svghost::ValueTable, static_cast<std::size_t>(svghost::AttributeId::FontSize)> m_values;
    std::unordered_map<std::wstring_view, svghost::SymbolName*, svghost::TextHash> m_names;
    std::vector<const svghost::Symbol*> m_marks; // of layers, by their numbers
    svghost::Use m_mark;                         // what the use of any of them is for the host
    std::string m_scratch;
    svghost::PathText m_pathText;
    svghost::ShortForm m_shortForm;
    svghost::PictureLayout m_layout;
    bool m_isLaidOut = false;
};
