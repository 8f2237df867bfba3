#include "prepare/write/EdgeGrid.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace prepare {

namespace {

constexpr std::size_t kEdgesOfOneCell = 12; // so few are looked at faster without cells
constexpr double kMostOnASide = 64;
constexpr std::size_t kEntriesOfEdge = 8; // in all cells, on average

std::size_t CellsOnASide(double count)
{
    return static_cast<std::size_t>(std::clamp(count, 1.0, kMostOnASide));
}

} // namespace

EdgeGrid::EdgeGrid(std::span<const AreaEdge> edges) : m_edges(edges), m_seen(edges.size())
{
    for (const AreaEdge& edge : edges) {
        m_box.Add(edge.start);
        m_box.Add(edge.end);
    }
    std::size_t columns = 1, rows = 1;
    if (edges.size() > kEdgesOfOneCell && m_box.Width() > 0 && m_box.Height() > 0) {
        const double cells = static_cast<double>(edges.size()) / 2;
        columns = CellsOnASide(std::sqrt(cells * (m_box.Width() / m_box.Height())));
        rows = CellsOnASide(cells / static_cast<double>(columns));
    }
    Choose(columns, rows);
    while (m_columns * m_rows > 1 && CountEntries() > kEntriesOfEdge * edges.size())
        Choose((m_columns + 1) / 2, (m_rows + 1) / 2);
    m_begin.assign(m_columns * m_rows + 1, 0);
    for (const AreaEdge& edge : edges)
        ForCells(edge, [&](std::size_t cell) { ++m_begin[cell + 1]; });
    for (std::size_t i = 1; i < m_begin.size(); ++i)
        m_begin[i] += m_begin[i - 1];
    m_entries.resize(m_begin.back());
    std::vector<std::uint32_t> next(m_begin.begin(), m_begin.end() - 1);
    for (std::size_t i = 0; i < edges.size(); ++i)
        ForCells(edges[i],
                 [&](std::size_t cell) { m_entries[next[cell]++] = static_cast<std::uint32_t>(i); });
}

void EdgeGrid::Choose(std::size_t columns, std::size_t rows)
{
    m_columns = columns;
    m_rows = rows;
    m_size = {m_box.Width() / static_cast<double>(columns), m_box.Height() / static_cast<double>(rows)};
}

std::size_t EdgeGrid::Cell(double at, double from, double size, std::size_t count)
{
    const double cell = size > 0 ? (at - from) / size : 0;
    return static_cast<std::size_t>(std::clamp(cell, 0.0, static_cast<double>(count - 1)));
}

// Calls take(cell) for each cell that the edge goes through.
template <class Take>
void EdgeGrid::ForCells(const AreaEdge& edge, const Take& take) const
{
    const auto [left, right] =
        edge.start.x <= edge.end.x ? std::pair(edge.start, edge.end) : std::pair(edge.end, edge.start);
    const std::size_t first = Column(left.x), last = Column(right.x);
    const double slope = right.x > left.x ? (right.y - left.y) / (right.x - left.x) : 0;
    double y = left.y;
    for (std::size_t column = first; column <= last; ++column) {
        const double end = m_box.min.x + m_size.x * static_cast<double>(column + 1);
        const double yAtEnd = column == last ? right.y : left.y + slope * (end - left.x);
        const std::size_t lastRow = Row(std::max(y, yAtEnd));
        for (std::size_t row = Row(std::min(y, yAtEnd)); row <= lastRow; ++row)
            take(row * m_columns + column);
        y = yAtEnd;
    }
}

std::size_t EdgeGrid::CountEntries() const
{
    std::size_t entries = 0;
    for (const AreaEdge& edge : m_edges)
        ForCells(edge, [&](std::size_t) { ++entries; });
    return entries;
}

void EdgeGrid::Collect(Cells columns, Cells rows)
{
    m_found.clear();
    ++m_search;
    for (std::size_t row = rows.first; row <= rows.last; ++row) {
        for (std::size_t column = columns.first; column <= columns.last; ++column) {
            const std::size_t cell = row * m_columns + column;
            m_looks += 1 + m_begin[cell + 1] - m_begin[cell];
            for (std::uint32_t i = m_begin[cell]; i < m_begin[cell + 1]; ++i) {
                const std::uint32_t edge = m_entries[i];
                if (std::exchange(m_seen[edge], m_search) != m_search)
                    m_found.push_back(edge);
            }
        }
    }
}

std::span<const std::uint32_t> EdgeGrid::Near(const Box& box)
{
    Collect({Column(box.min.x), Column(box.max.x)}, {Row(box.min.y), Row(box.max.y)});
    return m_found;
}

// Counts the edges to the left of the point.
bool EdgeGrid::IsInside(Point2 point)
{
    if (!(point.x >= m_box.min.x && point.x <= m_box.max.x && point.y >= m_box.min.y &&
          point.y <= m_box.max.y))
        return false;
    const std::size_t row = Row(point.y);
    Collect({0, Column(point.x)}, {row, row});
    bool isInside = false;
    for (const std::uint32_t number : m_found) {
        const AreaEdge& edge = m_edges[number];
        if ((edge.start.y <= point.y) == (edge.end.y <= point.y))
            continue;
        const double share = (point.y - edge.start.y) / (edge.end.y - edge.start.y);
        isInside ^= edge.start.x + share * (edge.end.x - edge.start.x) < point.x;
    }
    return isInside;
}

} // namespace prepare
