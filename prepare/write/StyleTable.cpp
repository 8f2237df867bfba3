#include "prepare/write/StyleTable.h"

#include <tuple>

namespace prepare {

namespace {

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
            style.lineType == nullptr ? kNoName : style.lineType->name,
            HasNamelessLineType(style) ? style.lineType->dashes : kNoDashes,
            style.lineTypeScale,
            style.layer};
}

} // namespace

bool StyleTable::Less::operator()(const Style& a, const Style& b) const
{
    return KeyOf(a) < KeyOf(b);
}

StyleId StyleTable::Of(const Style& style)
{
    if (!m_styles.empty() && KeyOf(*m_styles[m_last]) == KeyOf(style))
        return m_last;
    const auto known = m_ids.find(style);
    if (known != m_ids.end())
        return m_last = known->second;
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
    return m_last = id;
}

} // namespace prepare
