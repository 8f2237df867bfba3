// Columns of text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace plexorn {

// Rows of cells, each column as wide as its widest cell. The first row is the heading.
class Table {
public:
    // heading's cells; a column whose heading begins with '>' is set to the right.
    explicit Table(std::vector<std::string> heading);

    void Add(std::vector<std::string> cells);
    std::size_t Rows() const { return m_rows.size() - 1; }

    // All rows, each one a line that begins with two blanks.
    std::string Text() const;

private:
    std::vector<bool> m_areRight;
    std::vector<std::vector<std::string>> m_rows;
};

} // namespace plexorn
