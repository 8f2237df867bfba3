// Where the lines of an MTEXT are.
#pragma once

#include "prepare/plain/MTextCodes.h"
#include "prepare/plain/MTextLines.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace prepare {

// Lines in columns side by side. Lengths are in drawing units; places are to the right of the text's point
// and up from it.
class MTextLayout {
public:
    struct Column {
        std::size_t first = 0; // line
        std::size_t end = 0;
        double height = 0; // from the top of the first line to the lowest of the last one
    };

    // Both must outlive this. isSideBySide: all lines are on the base line through the point, one after the
    // other, and nothing breaks paragraphs. What is behind them still hangs from the point.
    MTextLayout(const MText& entity, const MTextContent& content, bool isSideBySide = false);

    bool IsSideBySide() const { return m_isSideBySide; }
    // From the end of a line to the start of the one beside it.
    double GapAfter(const TextLine& line) const;

    const std::vector<TextLine>& Lines() const { return m_lines; }
    const std::vector<Column>& Columns() const { return m_columns; }

    // From the base line before to the line's own.
    double DistanceTo(std::size_t line) const;
    double IndentOf(const TextLine& line) const;
    double LeftOf(std::size_t column) const;
    double ColumnWidth() const;

    // Of all columns.
    double Left() const { return -ShareAcross() * m_width; }
    double Top() const;
    double Width() const { return m_width; }
    double Height() const { return m_height; }
    // 0: the point is on the left side, 0.5 in the middle, 1 on the right side.
    double ShareAcross() const { return Attachment() % 3 / 2.0; }

private:
    std::int32_t Attachment() const;
    double RoomIn(std::size_t column) const;
    bool IsLastColumn(std::size_t column) const;
    bool IsOneColumn() const;
    void PutInColumns();
    void MakeColumns();
    void PutSideBySide();
    double ColumnStep() const;
    double WidthOfAll() const;

    const MText& m_entity;
    const MTextContent& m_content;
    bool m_isSideBySide;
    bool m_hasColumns;
    std::vector<TextLine> m_lines;
    std::vector<Column> m_columns;
    double m_width = 0;
    double m_height = 0;
};

} // namespace prepare
