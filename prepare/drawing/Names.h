// The names in a drawing: layers, line types, blocks, styles.
#pragma once

#include "base/Hash.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace prepare {

// A name's number; the same for names that differ only in the case of ASCII letters.
using NameId = std::uint32_t;

// The number of the empty name.
inline constexpr NameId kNoName = 0;

// Keeps each name once. Names are UTF-8, without blanks at their ends.
class Names {
public:
    Names();

    // The number of that name, a new one if it is new. Throws std::bad_alloc.
    NameId Of(std::string_view name)
    {
        const Recent& recent = m_recent[Place(name)];
        if (recent.name.size() == name.size() && EqualBytes(recent.name.data(), name.data(), name.size()))
            return recent.id;
        return Look(name);
    }
    // The number of that name if it has come already, else kNoName.
    NameId Find(std::string_view name) const;
    // The name as it came first.
    std::string_view Text(NameId name) const { return m_texts[name]; }
    std::size_t Count() const { return m_texts.size(); }

private:
    std::size_t Place(std::string_view name) const
    {
        return HashBytes(name.data(), name.size(), m_key) % kRecent;
    }
    NameId Look(std::string_view name);

    std::deque<std::string> m_texts;
    // Ordered: a file can choose names that all meet in one place of a hash table.
    std::map<std::string, NameId, std::less<>> m_ids; // by the name in lower case
    // Names that came lately, as they were written, each in the place that its hash gives.
    struct Recent {
        std::string name;
        NameId id = kNoName;
    };
    static constexpr std::size_t kRecent = 512;
    std::vector<Recent> m_recent;
    std::uint64_t m_key; // of the hash
};

} // namespace prepare
