// A line of a drawing.
#pragma once

#include <cstddef>
#include <string_view>

// A line's text in the buffer that it was read into. The 64 bytes before its begin and after its end can be
// read as well, so numbers are converted in wide steps. Only what owns such a buffer makes lines; any part of
// a line is a plain std::string_view.
class CDxfLine {
public:
    // The bytes that can be read on each side.
    static constexpr std::size_t kAround = 64;

    const char* data() const { return m_begin; }
    std::size_t size() const { return m_size; }
    bool empty() const { return m_size == 0; }
    operator std::string_view() const { return {m_begin, m_size}; }

    friend bool operator==(CDxfLine line, std::string_view text) { return std::string_view(line) == text; }

private:
    friend class CDxfStream;
    friend class PaddedText; // the tests' own buffer

    CDxfLine(const char* begin, std::size_t size) : m_begin(begin), m_size(size) {}

    const char* m_begin;
    std::size_t m_size;
};
