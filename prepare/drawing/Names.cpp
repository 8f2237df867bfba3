#include "prepare/drawing/Names.h"

#include <algorithm>

namespace prepare {

namespace {

char LowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string InLowerCase(std::string_view name)
{
    std::string lower(name);
    std::transform(lower.begin(), lower.end(), lower.begin(), LowerCase);
    return lower;
}

} // namespace

Names::Names() : m_recent(kRecent), m_key(HashKey(this))
{
    m_texts.emplace_back();
    m_ids.emplace("", kNoName);
}

NameId Names::Look(std::string_view name)
{
    const auto [place, isNew] = m_ids.try_emplace(InLowerCase(name), static_cast<NameId>(m_texts.size()));
    if (isNew) {
        try {
            m_texts.emplace_back(name);
        } catch (...) {
            m_ids.erase(place);
            throw;
        }
    }
    Recent& recent = m_recent[Place(name)];
    recent.name = name;
    recent.id = place->second;
    return recent.id;
}

NameId Names::Find(std::string_view name) const
{
    const auto found = m_ids.find(InLowerCase(name));
    return found == m_ids.end() ? kNoName : found->second;
}

} // namespace prepare
