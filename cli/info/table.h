// Columns of text.
#ifndef PLEXORN_CLI_INFO_TABLE_H
#define PLEXORN_CLI_INFO_TABLE_H

#include <string>
#include <string_view>
#include <vector>

namespace plexorn {

// Rows of cells, each column as wide as its widest cell. The first row is the heading.
class CTable {
public:
    // heading's cells; a column whose heading begins with '>' is set to the right.
    explicit CTable(std::vector<std::string> heading);

    void Add(std::vector<std::string> cells);
    size_t Rows() const { return m_rows.size() - 1; }

    // All rows, each one a line that begins with two blanks.
    std::string Text() const;

private:
    std::vector<bool> m_areRight;
    std::vector<std::vector<std::string>> m_rows;
};

} // namespace plexorn

#endif
