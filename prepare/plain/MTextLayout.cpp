#include "prepare/plain/MTextLayout.h"

#include "prepare/plain/TextMetrics.h"

#include <algorithm>
#include <cmath>

namespace prepare {

namespace {

double SpacingOf(const MText& entity)
{
    return entity.spacing > 0 && std::isfinite(entity.spacing) ? entity.spacing : 1;
}

// How wide lines may be; 0: as wide as they are.
double LimitOf(const MText& entity, bool isSideBySide, bool hasColumns)
{
    if (isSideBySide)
        return 0;
    return hasColumns ? entity.columnWidth : entity.width;
}

} // namespace

MTextLayout::MTextLayout(const MText& entity, const MTextContent& content, bool isSideBySide)
    : m_entity(entity), m_content(content), m_isSideBySide(isSideBySide),
      m_hasColumns(!isSideBySide && entity.columnType > 0 && entity.columnWidth > 0),
      m_lines(BreakIntoLines(content, LimitOf(entity, isSideBySide, m_hasColumns)))
{
    if (m_lines.size() > 1 && m_lines.back().parts.empty()) // after the end of the last paragraph
        m_lines.pop_back();
    if (m_hasColumns && entity.linkedColumns > 0 && IsOneColumn())
        m_hasColumns = false;
    if (m_isSideBySide)
        PutSideBySide();
    else
        PutInColumns();
}

void MTextLayout::PutInColumns()
{
    MakeColumns();
    m_width = WidthOfAll();
    for (const Column& column : m_columns)
        m_height = std::max(m_height, column.height);
}

double MTextLayout::DistanceTo(std::size_t line) const
{
    constexpr std::int32_t kExact = 2;
    const double factor = kLineDistance * SpacingOf(m_entity);
    if (m_entity.spacingStyle == kExact)
        return factor * m_content.looks.front().height;
    const TextLine& own = m_lines[line];
    return factor * own.height + (own.ascent - own.height) + m_lines[line - 1].descent;
}

double MTextLayout::GapAfter(const TextLine& line) const
{
    return (kLineDistance * SpacingOf(m_entity) - 1) * line.height;
}

void MTextLayout::PutSideBySide()
{
    for (const TextLine& line : m_lines) {
        m_width += line.width + (&line != &m_lines.back() ? GapAfter(line) : 0);
        m_height = std::max(m_height, line.ascent);
    }
}

// Where a column must end; 0: nowhere.
double MTextLayout::RoomIn(std::size_t column) const
{
    if (!m_hasColumns || IsLastColumn(column))
        return 0;
    const double height =
        column < m_entity.columnHeights.size() ? m_entity.columnHeights[column] : m_entity.definedHeight;
    return height > 0 ? height : 0;
}

// The last of columns whose number is fixed takes all that is left.
bool MTextLayout::IsLastColumn(std::size_t column) const
{
    const auto count = static_cast<std::size_t>(std::max(m_entity.columns, 0));
    return m_hasColumns && count > 0 && column + 1 >= count;
}

// Whether the text ends where its first column does: what is linked to it has the rest then. The letters of
// its author's font may have needed a little less room.
bool MTextLayout::IsOneColumn() const
{
    constexpr double kMostMore = 1.25;
    double base = 0, height = 0;
    bool isAfterBreak = false;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        base += i == 0 ? m_lines[i].ascent : DistanceTo(i);
        if (!m_lines[i].parts.empty()) {
            if (isAfterBreak)
                return false;
            height = base;
        }
        isAfterBreak = isAfterBreak || m_lines[i].endsColumn;
    }
    return !(RoomIn(0) > 0) || height <= RoomIn(0) * kMostMore;
}

void MTextLayout::MakeColumns()
{
    constexpr double kRounding = 1 + 1e-6;
    Column column;
    double base = 0; // from the column's top down
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        base = i == column.first ? m_lines[i].ascent : base + DistanceTo(i);
        const double room = RoomIn(m_columns.size());
        const bool isFull = room > 0 && i > column.first && base > room * kRounding;
        const bool isAsked =
            i > column.first && m_hasColumns && m_lines[i - 1].endsColumn && !IsLastColumn(m_columns.size());
        if (isFull || isAsked) {
            m_columns.push_back(column);
            column.first = i;
            base = m_lines[i].ascent;
        }
        column.end = i + 1;
        column.height = base + m_lines[i].descent;
    }
    m_columns.push_back(column);
}

std::int32_t MTextLayout::Attachment() const
{
    return m_entity.attachment >= 1 && m_entity.attachment <= 9 ? m_entity.attachment - 1 : 0;
}

double MTextLayout::Top() const
{
    const std::int32_t row = Attachment() / 3;
    return row / 2.0 * m_height;
}

double MTextLayout::IndentOf(const TextLine& line) const
{
    const ParagraphLook& paragraph = m_content.paragraphs[line.paragraph];
    return paragraph.left + (line.isFirst ? paragraph.firstIndent : 0);
}

double MTextLayout::ColumnStep() const
{
    return m_entity.columnWidth + std::max(m_entity.columnGutter, 0.0);
}

double MTextLayout::ColumnWidth() const
{
    return m_hasColumns ? m_entity.columnWidth : m_width;
}

double MTextLayout::LeftOf(std::size_t column) const
{
    const bool isReversed = m_hasColumns && m_entity.columnsFlowReversed != 0;
    const std::size_t place = isReversed ? m_columns.size() - 1 - column : column;
    return Left() + ColumnStep() * static_cast<double>(place);
}

double MTextLayout::WidthOfAll() const
{
    if (m_hasColumns)
        return ColumnStep() * static_cast<double>(m_columns.size() - 1) + m_entity.columnWidth;
    if (m_entity.width > 0)
        return m_entity.width;
    double widest = 0;
    for (const TextLine& line : m_lines)
        widest = std::max(widest, line.width + IndentOf(line) + m_content.paragraphs[line.paragraph].right);
    return widest;
}

} // namespace prepare
