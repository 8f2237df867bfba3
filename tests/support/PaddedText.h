// Lines without a stream.
#pragma once

#include "base/CDxfLine.h"

#include <cassert>
#include <cstddef>
#include <string>
#include <string_view>

// Owns a text with readable bytes around it, and cuts lines out of it. The bytes around are digits, so what
// takes them for a part of a line reads another number.
class PaddedText {
public:
    explicit PaddedText(std::string_view text)
    {
        m_text.append(CDxfLine::kAround, '7').append(text).append(CDxfLine::kAround, '7');
    }

    // The whole text, or size bytes from begin on; valid as long as this object.
    CDxfLine Line() const { return Line(0, m_text.size() - 2 * CDxfLine::kAround); }
    CDxfLine Line(std::size_t begin, std::size_t size) const
    {
        assert(begin + size <= m_text.size() - 2 * CDxfLine::kAround);
        return {m_text.data() + CDxfLine::kAround + begin, size};
    }

private:
    std::string m_text;
};
