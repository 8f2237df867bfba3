// The styles of a drawing's entities, each once.
#pragma once

#include "prepare/plain/Plain.h"

#include <cstdint>
#include <deque>
#include <map>
#include <vector>

namespace prepare {

using StyleId = std::uint32_t;

class StyleTable {
public:
    // The number of that style, a new one if it is new. A line type without a name is copied. Throws
    // std::bad_alloc.
    StyleId Of(const Style& style);
    const Style& operator[](StyleId id) const { return *m_styles[id]; }
    std::size_t Count() const { return m_styles.size(); }

private:
    struct Less {
        bool operator()(const Style& a, const Style& b) const;
    };
    std::map<Style, StyleId, Less> m_ids;
    std::vector<const Style*> m_styles; // the keys of m_ids
    std::deque<LineType> m_lineTypes;   // those without names
    StyleId m_last = 0;                 // neighbours often share a style
};

} // namespace prepare
