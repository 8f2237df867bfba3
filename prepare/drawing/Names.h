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
        return recent.Is(name) ? recent.id : Look(name);
    }
    // The number of a word that keeps its case whatever names there are, as a type of entity does: no name
    // has that number. Throws std::bad_alloc.
    NameId OfWord(std::string_view word)
    {
        const Recent& recent = m_recentWords[Place(word)];
        return recent.Is(word) ? recent.id : LookWord(word);
    }
    // The number of that name if it has come already, else kNoName.
    NameId Find(std::string_view name) const;
    // The name as it came first.
    std::string_view Text(NameId name) const { return m_texts[name]; }
    std::size_t Count() const { return m_texts.size(); }

private:
    // Names that came lately, as they were written, each in the place that its hash gives.
    struct Recent {
        std::string name;
        NameId id = kNoName;
        bool Is(std::string_view other) const
        {
            return name.size() == other.size() && EqualBytes(name.data(), other.data(), name.size());
        }
    };

    std::size_t Place(std::string_view name) const
    {
        return HashBytes(name.data(), name.size(), m_key) % kRecent;
    }
    NameId Look(std::string_view name);
    NameId LookWord(std::string_view word);
    using Numbers = std::map<std::string, NameId, std::less<>>;
    NameId Number(Numbers& numbers, std::string key, std::string_view text, Recent& recent);

    std::deque<std::string> m_texts;
    // Ordered: a file can choose names that all meet in one place of a hash table.
    Numbers m_ids; // by the name in lower case
    static constexpr std::size_t kRecent = 512;
    std::vector<Recent> m_recent;
    Numbers m_words; // as they are
    std::vector<Recent> m_recentWords;
    std::uint64_t m_key; // of the hash
};

} // namespace prepare
