#include "cli/info/Table.h"

#include "base/Utf8.h"

#include <algorithm>

namespace plexorn {

namespace {

// The number of characters of a UTF-8 text.
std::size_t WidthOf(std::string_view text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char byte) { return !IsTrailByte(byte); }));
}

} // namespace

Table::Table(std::vector<std::string> heading)
{
    for (std::string& cell : heading) {
        m_areRight.push_back(cell.starts_with('>'));
        if (m_areRight.back())
            cell.erase(0, 1);
    }
    m_rows.push_back(std::move(heading));
}

void Table::Add(std::vector<std::string> cells)
{
    m_rows.push_back(std::move(cells));
}

std::string Table::Text() const
{
    std::vector<std::size_t> widths(m_areRight.size());
    for (const std::vector<std::string>& row : m_rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], WidthOf(row[i]));
    std::string out;
    for (const std::vector<std::string>& row : m_rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string blanks(widths[i] - WidthOf(row[i]), ' ');
            out.append("  ").append(m_areRight[i] ? blanks + row[i] : row[i] + blanks);
        }
        out.erase(out.find_last_not_of(' ') + 1);
        out.push_back('\n');
    }
    return out;
}

} // namespace plexorn
