// The texts of paths, polylines and polygons.
#pragma once

#include "svghost/Geometry.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace svghost {

// Keeps one text after the other, with room after it that numbers are read with in wide steps.
class PathText {
public:
    // False for a text that is not all ASCII, as no path is.
    bool Set(std::wstring_view text);
    void Set(std::string_view text);

    const char* Get() const { return m_storage.data(); }

private:
    char* Start(std::size_t size);

    std::string m_storage; // beyond the zero after the text what an earlier one left
};

// Takes the short form of one text after the other, each into the same storage, which grows when a text needs
// more than all before it.
class ShortForm {
public:
    void Clear() { m_size = 0; }
    std::string_view Get() const { return {m_storage.data(), m_size}; }

    void Put(char character)
    {
        Reserve(1);
        m_storage[m_size++] = character;
    }

    void Put(std::string_view number)
    {
        Reserve(number.size());
        std::copy(number.begin(), number.end(), m_storage.data() + m_size);
        m_size += number.size();
    }

private:
    void Reserve(std::size_t more)
    {
        if (more > m_storage.size() - m_size) [[unlikely]]
            m_storage.resize(2 * (m_size + more));
    }

    std::string m_storage; // beyond m_size what an earlier text left
    std::size_t m_size = 0;
};

// Reads points ("x,y" pairs), adds them to out in short form and each to box. False when a number is not
// drawable or the text is anything but complete pairs; an empty text is fine. A long text is made narrow
// piece by piece, so that it does not take memory twice.
bool ScanPoints(std::wstring_view text, PathText& narrow, ShortForm& out, Box& box);

// Reads path data made of absolute move-to, line-to, elliptical-arc and close commands, adds it to out in
// short form and its picture under map to box. False when a number is not drawable or for any other text; an
// empty one is fine.
bool ScanPath(const PathText& text, const Affine& map, ShortForm& out, Box& box);

} // namespace svghost
