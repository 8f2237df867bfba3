// Elements on one layer, as a group.
#pragma once

#include "svghost/LayerMarks.h"
#include "svghost/XmlStream.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace svghost {

// The names of layers as attributes have them, each made once.
class LayerTexts {
public:
    // layer is a part of a symbol's name, which stays where it is.
    std::string_view Of(std::wstring_view layer);

private:
    std::unordered_map<const wchar_t*, std::string> m_texts;
};

// Puts elements of one container that follow each other on one layer into a group, which is opened before the
// first of them. What is within a group of the drawing's own stays there, whatever its layer.
class LayerRun {
public:
    LayerRun(XmlStream& out, LayerTexts& texts) : m_out(out), m_texts(texts) {}

    void Take(const Symbol& mark)
    {
        if (m_depth == 0)
            m_wanted = LayerOf(mark);
    }
    // To be called before an element is written, and after the last one.
    void BeginElement()
    {
        if (m_depth == 0 && m_wanted != m_open)
            Change();
    }
    void End();

    void EnterGroup() { ++m_depth; }
    void LeaveGroup() { --m_depth; }

private:
    void Change();

    XmlStream& m_out;
    LayerTexts& m_texts;
    std::wstring_view m_wanted;
    std::wstring_view m_open; // empty: none is
    int m_depth = 0;          // of the drawing's own groups
};

} // namespace svghost
