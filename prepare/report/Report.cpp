#include "prepare/report/Report.h"

namespace prepare {

void Report::Add(Finding finding, std::string_view subject, std::string_view detail, std::uint64_t line,
                 std::uint64_t count)
{
    auto& [key, met] = *m_entries.try_emplace({finding, std::string(subject), std::string(detail)}).first;
    if (met.count == 0)
        met.firstLine = line;
    met.count += count;
    if (m_listener)
        m_listener(key, line, count);
}

} // namespace prepare
