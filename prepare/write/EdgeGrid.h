// Where the edges of an area are.
#pragma once

#include "prepare/drawing/Point.h"
#include "prepare/plain/Box.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace prepare {

struct AreaEdge {
    Point2 start;
    Point2 end;
};

// Finds edges by their place, and what is inside of them: what an odd number of edges is around.
class EdgeGrid {
public:
    // edges must outlive the grid.
    explicit EdgeGrid(std::span<const AreaEdge> edges);

    // The numbers of the edges that may meet the box, each once. Good until the next call.
    std::span<const std::uint32_t> Near(const Box& box);
    bool IsInside(Point2 point);

    // How many cells and edges were looked at so far.
    std::uint64_t Looks() const { return m_looks; }

private:
    struct Cells {
        std::size_t first;
        std::size_t last;
    };

    std::size_t Column(double x) const { return Cell(x, m_box.min.x, m_size.x, m_columns); }
    std::size_t Row(double y) const { return Cell(y, m_box.min.y, m_size.y, m_rows); }
    static std::size_t Cell(double at, double from, double size, std::size_t count);
    template <class Take>
    void ForCells(const AreaEdge& edge, const Take& take) const;
    void Choose(std::size_t columns, std::size_t rows);
    std::size_t CountEntries() const;
    void Collect(Cells columns, Cells rows);

    std::span<const AreaEdge> m_edges;
    Box m_box;
    std::size_t m_columns = 1;
    std::size_t m_rows = 1;
    Point2 m_size;                        // of a cell
    std::vector<std::uint32_t> m_begin;   // of each cell's edges, and their end
    std::vector<std::uint32_t> m_entries; // the edges of all cells
    std::vector<std::uint32_t> m_seen;    // by edge: in which search it was found last
    std::uint32_t m_search = 0;
    std::vector<std::uint32_t> m_found;
    std::uint64_t m_looks = 0;
};

} // namespace prepare
