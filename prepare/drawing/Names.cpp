#include "prepare/drawing/Names.h"

#include "base/Letters.h"

#include <algorithm>
#include <utility>

namespace prepare {

Names::Names() : m_recent(kRecent), m_recentWords(kRecent), m_key(HashKey(this))
{
    m_texts.emplace_back();
    m_ids.emplace("", kNoName);
}

NameId Names::Look(std::string_view name)
{
    return Number(m_ids, InSmallLetters(name), name, m_recent[Place(name)]);
}

NameId Names::LookWord(std::string_view word)
{
    return word.empty() ? kNoName : Number(m_words, std::string(word), word, m_recentWords[Place(word)]);
}

NameId Names::Number(Numbers& numbers, std::string key, std::string_view text, Recent& recent)
{
    const auto [place, isNew] = numbers.try_emplace(std::move(key), static_cast<NameId>(m_texts.size()));
    if (isNew) {
        try {
            m_texts.emplace_back(text);
        } catch (...) {
            numbers.erase(place);
            throw;
        }
    }
    recent.name = text;
    recent.id = place->second;
    return recent.id;
}

NameId Names::Find(std::string_view name) const
{
    const auto found = m_ids.find(InSmallLetters(name));
    return found == m_ids.end() ? kNoName : found->second;
}

} // namespace prepare
