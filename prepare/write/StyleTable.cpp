#include "prepare/write/StyleTable.h"

#include <tuple>

namespace prepare {

namespace {

auto KeyOf(const Style& style)
{
    // Line types by their names: where they are in memory differs from run to run.
    return std::tuple(style.colour.isTrue, style.colour.rgb, style.colour.index, style.weight, style.width,
                      style.lineType == nullptr ? kNoName : style.lineType->name, style.lineTypeScale,
                      style.layer);
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
    m_styles.push_back(nullptr); // first: nothing is half done when memory is short
    try {
        m_styles.back() = &m_ids.emplace(style, id).first->first;
    } catch (...) {
        m_styles.pop_back();
        throw;
    }
    return m_last = id;
}

} // namespace prepare
