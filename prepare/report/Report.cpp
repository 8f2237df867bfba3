#include "prepare/report/Report.h"

#include <utility>

namespace prepare {

void Report::Add(Finding finding, std::string_view subject, std::string_view detail, std::uint64_t line,
                 std::uint64_t count)
{
    if (finding == Finding::NotShown && std::exchange(m_lastNotShown, line) == line)
        return;
    m_losses += finding == Finding::NotShown || finding == Finding::Cut;
    auto& [key, met] = *m_entries.try_emplace({finding, std::string(subject), std::string(detail)}).first;
    met.Add(line, count);
    if (m_listener)
        m_listener(key, line, count);
}

} // namespace prepare
