#include "prepare/write/StyleTable.h"

#include "base/Hash.h"

#include <array>
#include <bit>
#include <tuple>

namespace prepare {

namespace {

NameId NameOf(const LineType* lineType)
{
    return lineType == nullptr ? kNoName : lineType->name;
}

bool HasNamelessLineType(const Style& style)
{
    return style.lineType != nullptr && style.lineType->name == kNoName;
}

using Key = std::tuple<bool, std::uint32_t, std::int32_t, std::int32_t, double, NameId,
                       const std::vector<double>&, double, NameId>;

// Line types by their names, or by their dashes when they have no name: addresses in memory differ from run
// to run, and mean nothing once an entity is gone.
Key KeyOf(const Style& style)
{
    static const std::vector<double> kNoDashes;
    return {style.colour.isTrue,
            style.colour.rgb,
            style.colour.index,
            style.weight,
            style.width,
            NameOf(style.lineType),
            HasNamelessLineType(style) ? style.lineType->dashes : kNoDashes,
            style.lineTypeScale,
            style.layer};
}

// As their keys are, at once.
bool AreEqual(const Style& a, const Style& b)
{
    const bool isAlike = a.colour == b.colour && a.weight == b.weight && a.width == b.width &&
                         a.lineTypeScale == b.lineTypeScale && a.layer == b.layer &&
                         NameOf(a.lineType) == NameOf(b.lineType);
    return isAlike && (a.lineType == b.lineType || NameOf(a.lineType) != kNoName || KeyOf(a) == KeyOf(b));
}

// The same for equal keys.
std::uint64_t HashOf(const Style& style, std::uint64_t key)
{
    const NameId lineType = NameOf(style.lineType);
    const std::array<std::uint64_t, 4> parts = {
        std::uint64_t{style.colour.rgb} << 32 | static_cast<std::uint32_t>(style.colour.index),
        std::uint64_t{style.layer} << 32 | static_cast<std::uint32_t>(style.weight),
        std::bit_cast<std::uint64_t>(style.width) ^ lineType,
        std::bit_cast<std::uint64_t>(style.lineTypeScale) ^ std::uint64_t{style.colour.isTrue}};
    return HashBytes(parts.data(), sizeof(parts), key);
}

} // namespace

StyleTable::StyleTable() : m_key(HashKey(this)) {}

bool StyleTable::Less::operator()(const Style& a, const Style& b) const
{
    return KeyOf(a) < KeyOf(b);
}

StyleId StyleTable::Of(const Style& style)
{
    StyleId& recent = m_recent[HashOf(style, m_key) % kRecent];
    if (recent < m_styles.size() && AreEqual(*m_styles[recent], style))
        return recent;
    return recent = Look(style);
}

StyleId StyleTable::Look(const Style& style)
{
    const auto known = m_ids.find(style);
    if (known != m_ids.end())
        return known->second;
    const auto id = static_cast<StyleId>(m_styles.size());
    Style kept = style;
    if (HasNamelessLineType(style))
        kept.lineType = &m_lineTypes.emplace_back(*style.lineType);
    m_styles.push_back(nullptr); // first: nothing is half done when memory is short
    try {
        m_styles.back() = &m_ids.emplace(kept, id).first->first;
    } catch (...) {
        m_styles.pop_back();
        throw;
    }
    return id;
}

} // namespace prepare
