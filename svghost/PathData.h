// The texts of paths, polylines and polygons.
#pragma once

#include "svghost/Geometry.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace svghost {

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

    // A number: each of its characters has one byte.
    template <class Char>
    void Put(std::basic_string_view<Char> number)
    {
        Reserve(number.size());
        char* out = m_storage.data() + m_size;
        for (const Char character : number)
            *out++ = static_cast<char>(character);
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
// drawable or the text is anything but complete pairs; an empty text is fine.
bool ScanPoints(const wchar_t* text, ShortForm& out, Box& box);

// Reads path data made of absolute move-to, line-to, elliptical-arc and close commands, adds it to out in
// short form and its picture under map to box. False when a number is not drawable or for any other text; an
// empty one is fine. Char is char or wchar_t.
template <class Char>
bool ScanPath(const Char* text, const Affine& map, ShortForm& out, Box& box);

} // namespace svghost
