#include "prepare/plain/DrawTable.h"

#include "prepare/plain/DrawMText.h"
#include "prepare/plain/NoteParts.h"

#include <cmath>
#include <string_view>
#include <vector>

namespace prepare {

namespace {

// The sums of sizes, from 0 on; an invalid size counts as 0.
std::vector<double> Borders(const std::vector<double>& sizes, std::int32_t count)
{
    std::vector<double> borders{0};
    for (std::size_t i = 0; i < sizes.size() && static_cast<std::int64_t>(i) < count; ++i)
        borders.push_back(borders.back() + (sizes[i] > 0 && std::isfinite(sizes[i]) ? sizes[i] : 0));
    return borders;
}

class TableDrawing {
public:
    TableDrawing(const Table& table, const Placement& placement, const PartStyler& styleOf)
        : m_table(table), m_placement(placement), m_styleOf(styleOf),
          m_plane(PlaneOf(table.point, table.direction, table.extrusion)),
          m_frame(placement, m_plane, placement.style), m_across(Borders(table.columnWidths, table.columns)),
          m_down(Borders(table.rowHeights, table.rows))
    {
    }

    void Draw()
    {
        if (!(m_across.back() > 0 && m_down.back() > 0) || m_table.cells.empty())
            return Report(Finding::NotShown, "it has no picture block and no cells");
        m_frame.Line(0, 0, m_across.back(), 0);
        // A file can have sizes of more rows and columns than cells; their product would be without bounds.
        const std::size_t columns = m_across.size() - 1;
        for (std::size_t row = 0; row + 1 < m_down.size() && row * columns < m_table.cells.size(); ++row)
            DrawRow(row);
        Report(Finding::Changed, "it has no picture block: drawn without its style");
    }

private:
    std::string_view TextOf(std::size_t row, std::size_t column) const
    {
        const std::size_t cell = row * (m_across.size() - 1) + column;
        return cell < m_table.cells.size() ? std::string_view(m_table.cells[cell]) : std::string_view();
    }

    // A row with nothing but its first cell is a title over all columns.
    void DrawRow(std::size_t row)
    {
        std::size_t last = m_across.size() - 1;
        while (last > 1 && TextOf(row, last - 1).empty())
            --last;
        const std::size_t columns = last == 1 ? 1 : m_across.size() - 1;
        const double top = -m_down[row], bottom = -m_down[row + 1];
        m_frame.Line(0, bottom, m_across.back(), bottom);
        m_frame.Line(0, top, 0, bottom);
        for (std::size_t column = 0; column < columns; ++column) {
            const double right = columns == 1 ? m_across.back() : m_across[column + 1];
            m_frame.Line(right, top, right, bottom);
            DrawCell(TextOf(row, column), m_across[column], right, top, bottom);
        }
    }

    // Letters take half of a row that has one line.
    void DrawCell(std::string_view letters, double left, double right, double top, double bottom)
    {
        constexpr double kLine = 5.0 / 3;
        double lines = 0;
        for (std::size_t end = letters.find("\\P"); end != std::string_view::npos;
             end = letters.find("\\P", end + 1))
            ++lines;
        const double height = (top - bottom) / (2 + kLine * lines);
        if (!(height > 0))
            return;
        MText text = TextIn(m_plane, (left + right) / 2, (top + bottom) / 2, height, letters, m_table.line);
        text.width = right - left;
        DrawMText(text, m_placement, m_styleOf, "ACAD_TABLE");
    }

    void Report(Finding finding, std::string_view detail)
    {
        m_placement.report.Add(finding, "ACAD_TABLE", detail, m_table.line);
    }

    const Table& m_table;
    const Placement& m_placement;
    const PartStyler& m_styleOf;
    const NotePlane m_plane;
    const NoteFrame m_frame;
    const std::vector<double> m_across;
    const std::vector<double> m_down;
};

} // namespace

void DrawTable(const Table& table, const Placement& placement, const PartStyler& styleOf)
{
    TableDrawing(table, placement, styleOf).Draw();
}

} // namespace prepare
