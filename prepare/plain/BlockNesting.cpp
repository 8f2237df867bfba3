#include "prepare/plain/BlockNesting.h"

#include <algorithm>

namespace prepare {

bool BlockNesting::MayEnter(const Block& block, std::uint64_t line)
{
    // No drawing of a program is nested deeper, and this bounds the stack.
    constexpr std::size_t kDeepest = 64;
    if (std::find(m_open.begin(), m_open.end(), &block) != m_open.end()) {
        m_report.Add(Finding::NotShown, "INSERT", "its block contains itself", line);
        return false;
    }
    if (m_open.size() < kDeepest)
        return true;
    m_report.Add(Finding::Cut, "INSERT", "blocks are nested too deep", line);
    return false;
}

} // namespace prepare
