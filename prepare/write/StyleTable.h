// The styles of a drawing's entities, each once.
#pragma once

#include "prepare/plain/Plain.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <vector>

namespace prepare {

using StyleId = std::uint32_t;

class StyleTable {
public:
    StyleTable();

    // The number of that style, a new one if it is new. A line type without a name is copied. Throws
    // std::bad_alloc.
    StyleId Of(const Style& style);
    const Style& operator[](StyleId id) const { return *m_styles[id]; }
    std::size_t Count() const { return m_styles.size(); }

private:
    struct Less {
        bool operator()(const Style& a, const Style& b) const;
    };
    StyleId Look(const Style& style);

    static constexpr std::size_t kRecent = 4096;

    // Ordered: a file can choose styles that all meet in one place of a hash table.
    std::map<Style, StyleId, Less> m_ids;
    std::vector<const Style*> m_styles;      // the keys of m_ids
    std::deque<LineType> m_lineTypes;        // those without names
    std::array<StyleId, kRecent> m_recent{}; // styles that came lately, each in the place that its hash gives
    std::uint64_t m_key;                     // of the hash
};

} // namespace prepare
