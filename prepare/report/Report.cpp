#include "prepare/report/Report.h"

namespace prepare {

void Report::Add(Finding finding, std::string_view subject, std::string_view detail, std::uint64_t line,
                 std::uint64_t count)
{
    FindingCount& entry = m_entries[{finding, std::string(subject), std::string(detail)}];
    if (entry.count == 0)
        entry.firstLine = line;
    entry.count += count;
}

} // namespace prepare
