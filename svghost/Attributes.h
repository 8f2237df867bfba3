// The attributes that the module sets: their names, and their values as SVG needs them.
#pragma once

#include "base/CDxfArena.h"
#include "svghost/Node.h"
#include "svghost/TextHash.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace svghost {

// The attribute called name; Other for a name that the host does not know.
AttributeId AttributeByName(std::wstring_view name);

// One text that an attribute was set to, resolved once.
struct Value {
    std::wstring_view source;
    std::string_view text;  // in UTF-8, escaped for an attribute
    double number = 0;      // of a stroke width
    bool isDropped = false; // it says nothing that SVG accepts: the attribute is not written
    bool isTooLong = false; // a dash pattern beyond kLongestDashArray, dropped too
    bool isDotted = false;  // a dash pattern that holds a length of 0
};

// The characters of the longest dash pattern that is written, some fifty lengths. Every element repeats its
// pattern: without a limit one pattern and the elements that have it multiply.
inline constexpr std::size_t kLongestDashArray = 512;

// The texts that one attribute was set to. Index 0 means that the attribute is not set; a text that is set
// again gets the index that it had.
class ValueTable {
public:
    // resolve(text, value) is called for a new text; it fills the value's text and number.
    template <class Resolve>
    std::uint32_t IndexOf(std::wstring_view source, CDxfArena& arena, Resolve resolve)
    {
        std::uint32_t& recent = m_recent[Place(source)];
        if (recent != 0 && m_values[recent].source == source)
            return recent;
        const auto known = m_indices.find(source);
        return recent = known != m_indices.end() ? known->second : Add(source, arena, resolve);
    }

    const Value& At(std::uint32_t index) const { return m_values[index]; }
    std::size_t Size() const { return m_values.size(); }

private:
    static constexpr std::size_t kRecent = 64;

    // Colours and numbers differ near their ends and in the middle.
    static std::size_t Place(std::wstring_view text)
    {
        if (text.size() < 3)
            return text.size();
        const auto at = [&](std::size_t place) { return static_cast<std::size_t>(text[place]); };
        const std::size_t size = text.size();
        return (at(size - 2) + 3 * at(size - 3) + 7 * at(size / 2) + 11 * at(size / 3) + size) % kRecent;
    }

    template <class Resolve>
    std::uint32_t Add(std::wstring_view source, CDxfArena& arena, Resolve resolve)
    {
        Value value;
        value.source = arena.Copy(source);
        resolve(source, value);
        m_values.push_back(value);
        const auto index = static_cast<std::uint32_t>(m_values.size() - 1);
        m_indices.emplace(value.source, index);
        return index;
    }

    std::deque<Value> m_values{Value()};
    std::unordered_map<std::wstring_view, std::uint32_t, TextHash> m_indices;
    std::array<std::uint32_t, kRecent> m_recent{}; // those that came lately, each in the place of its text
};

// The text, cut where it is certain to be longer than kLongestDashArray. This bounds what a pattern costs,
// however many elements have it.
std::wstring_view DashArrayText(const wchar_t* text);

// Each appends the attribute's text for SVG to out; false when the attribute is not written.
bool ResolveStroke(std::wstring_view text, std::string& out);
bool ResolveStrokeWidth(std::wstring_view text, std::string& out, double& width);
bool ResolveDashArray(std::wstring_view text, std::string& out, bool& isDotted);
bool ResolveTextAnchor(std::wstring_view text, std::string& out);

// Whether a viewer may take the text for the name of something to fetch, such as url(...): it is not written
// then, because a picture fetches nothing.
bool MayFetch(std::wstring_view text);

} // namespace svghost
