#include "prepare/plain/DrawMText.h"

#include "prepare/plain/MTextCodes.h"
#include "prepare/plain/MTextLines.h"
#include "prepare/plain/TextPieces.h"
#include "prepare/plain/TextStyles.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace prepare {

namespace {

using Kind = MTextItem::Kind;

// The distance of two base lines, in heights of the letters.
constexpr double kLineDistance = 5.0 / 3;

// Lines side by side, and one below the other.
struct Column {
    std::size_t first = 0; // line
    std::size_t end = 0;
    double height = 0; // from the top of the first line to the lowest of the last one
};

class MTextDrawing {
public:
    MTextDrawing(const MText& entity, const Placement& placement, const PartStyler& styleOf,
                 std::string_view typeName)
        : m_entity(entity), m_placement(placement), m_styleOf(styleOf), m_typeName(typeName),
          m_drawer(placement, FrameOf(), typeName, entity.line, entity.style),
          m_hasColumns(entity.columnType > 0 && entity.columnWidth > 0)
    {
    }

    void Draw()
    {
        const TextStyle* style = m_placement.drawing.FindTextStyle(m_entity.style);
        RunLook first;
        first.height = TextHeightOf(m_entity.height, style, m_placement.drawing.header);
        first.widthFactor = WidthFactorOf(style != nullptr ? style->widthFactor : 1);
        first.slant = SlantOf(style != nullptr ? style->oblique : 0);
        m_content = ReadMText(m_entity.text, first, m_placement.drawing.header.Text("$DWGCODEPAGE"));
        m_lines = BreakIntoLines(m_content, m_hasColumns ? m_entity.columnWidth : m_entity.width);
        MakeColumns();
        for (std::size_t column = 0; column < m_columns.size(); ++column)
            DrawColumn(column);
        ReportChanges();
    }

private:
    TextFrame FrameOf() const
    {
        const Matrix fromObject = FromObject(m_entity.extrusion);
        Point3 along = m_entity.direction;
        if (!m_entity.hasDirection || !(Length(along) > 0)) {
            // The angle is from the world's x axis, even where the text is seen from below; only in a tilted
            // plane is it from the plane's own.
            const double angle = m_entity.rotation * kDegree;
            along = {std::cos(angle), std::sin(angle), 0};
            if (fromObject.z.x != 0 || fromObject.z.y != 0)
                along = fromObject.Direction(along);
        }
        along = (1 / Length(along)) * along;
        TextFrame frame;
        frame.origin = m_placement.matrix.Flat(m_entity.point);
        frame.u = m_placement.matrix.FlatDirection(along);
        frame.v = m_placement.matrix.FlatDirection(Cross(fromObject.z, along));
        return frame;
    }

    double Spacing() const
    {
        return m_entity.spacing > 0 && std::isfinite(m_entity.spacing) ? m_entity.spacing : 1;
    }

    // From the base line before to the line's own.
    double DistanceTo(std::size_t line) const
    {
        constexpr std::int32_t kExact = 2;
        const double factor = kLineDistance * Spacing();
        if (m_entity.spacingStyle == kExact)
            return factor * m_content.looks.front().height;
        const TextLine& own = m_lines[line];
        return factor * own.height + (own.ascent - own.height) + m_lines[line - 1].descent;
    }

    // Where a column must end; 0: nowhere.
    double RoomIn(std::size_t column) const
    {
        if (!m_hasColumns || IsLastColumn(column))
            return 0;
        const double height =
            column < m_entity.columnHeights.size() ? m_entity.columnHeights[column] : m_entity.definedHeight;
        return height > 0 ? height : 0;
    }

    // The last of columns whose number is fixed takes all that is left.
    bool IsLastColumn(std::size_t column) const
    {
        const auto count = static_cast<std::size_t>(std::max(m_entity.columns, 0));
        return m_hasColumns && count > 0 && column + 1 >= count;
    }

    void MakeColumns()
    {
        constexpr double kRounding = 1 + 1e-6;
        Column column;
        double base = 0; // from the column's top down
        for (std::size_t i = 0; i < m_lines.size(); ++i) {
            base = i == column.first ? m_lines[i].ascent : base + DistanceTo(i);
            const double room = RoomIn(m_columns.size());
            const bool isFull = room > 0 && i > column.first && base > room * kRounding;
            const bool isAsked = i > column.first && m_hasColumns && m_lines[i - 1].endsColumn &&
                                 !IsLastColumn(m_columns.size());
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

    std::int32_t Attachment() const
    {
        return m_entity.attachment >= 1 && m_entity.attachment <= 9 ? m_entity.attachment - 1 : 0;
    }

    // 0 left or top, 0.5 in the middle, 1 right or bottom.
    double ShareAcross() const { return Attachment() % 3 / 2.0; }
    double ShareDown() const { return Attachment() / 3 / 2.0; }

    double ColumnStep() const { return m_entity.columnWidth + std::max(m_entity.columnGutter, 0.0); }

    // Of all columns.
    double Width() const
    {
        if (m_hasColumns)
            return ColumnStep() * static_cast<double>(m_columns.size() - 1) + m_entity.columnWidth;
        if (m_entity.width > 0)
            return m_entity.width;
        double widest = 0;
        for (const TextLine& line : m_lines)
            widest =
                std::max(widest, line.width + IndentOf(line) + m_content.paragraphs[line.paragraph].right);
        return widest;
    }

    double IndentOf(const TextLine& line) const
    {
        const ParagraphLook& paragraph = m_content.paragraphs[line.paragraph];
        return paragraph.left + (line.isFirst ? paragraph.firstIndent : 0);
    }

    void DrawColumn(std::size_t number)
    {
        const Column& column = m_columns[number];
        double highest = 0;
        for (const Column& any : m_columns)
            highest = std::max(highest, any.height);
        const double width = Width();
        const std::size_t place =
            m_hasColumns && m_entity.columnsFlowReversed != 0 ? m_columns.size() - 1 - number : number;
        const double left = ColumnStep() * static_cast<double>(place) - ShareAcross() * width;
        const double right = left + (m_hasColumns ? m_entity.columnWidth : width);
        double base = ShareDown() * highest;
        for (std::size_t i = column.first; i < column.end; ++i) {
            base -= i == column.first ? m_lines[i].ascent : DistanceTo(i);
            DrawLine(m_lines[i], left, right, base);
        }
    }

    // 0 left, 0.5 centred, 1 right.
    double ShareOf(const TextLine& line) const
    {
        switch (m_content.paragraphs[line.paragraph].alignment) {
        case LineAlignment::Left:
            return 0;
        case LineAlignment::Centre:
            return 0.5;
        case LineAlignment::Right:
            return 1;
        default:
            return ShareAcross();
        }
    }

    void DrawLine(const TextLine& line, double left, double right, double base)
    {
        const double share = ShareOf(line);
        left += IndentOf(line);
        right -= m_content.paragraphs[line.paragraph].right;
        const double anchor = left + (right - left) * share;
        // Alone, a part is anchored as its line is aligned; what another font's width is spreads as meant.
        if (line.parts.size() == 1 && line.parts.front().kind == Kind::Letters && line.parts.front().x == 0) {
            const LinePart& part = line.parts.front();
            m_drawer.Draw(StyleFor(part.look), PieceOf(part, line, anchor, base, AnchorOf(share)));
            return;
        }
        const double start = anchor - line.width * share;
        for (std::size_t first = 0, end = 0; first < line.parts.size(); first = end) {
            const LinePart& part = line.parts[first];
            end = EndOfRuns(line, first);
            if (part.kind != Kind::Letters)
                DrawFraction(part, line, start + part.x, base);
            else if (first == 0 && end == line.parts.size() && part.x == 0)
                DrawRuns(line, first, end, start, anchor, base, AnchorOf(share));
            else
                DrawRuns(line, first, end, start, start + part.x, base, Anchor::Start);
        }
    }

    static Anchor AnchorOf(double share)
    {
        return share == 0 ? Anchor::Start : share < 1 ? Anchor::Middle : Anchor::End;
    }

    // Parts that can be written as one: from the first on, those at the same height in letters of the same
    // proportions, without a tab or a fraction between them.
    std::size_t EndOfRuns(const TextLine& line, std::size_t first) const
    {
        const auto lookOf = [&](std::size_t i) { return m_content.looks[line.parts[i].look]; };
        const RunLook look = lookOf(first);
        std::size_t end = first + 1;
        while (line.parts[first].kind == Kind::Letters && end < line.parts.size() &&
               line.parts[end].kind == Kind::Letters && !line.parts[end].isAfterTab &&
               lookOf(end).widthFactor == look.widthFactor && lookOf(end).slant == look.slant &&
               RaiseOf(lookOf(end), line.height) == RaiseOf(look, line.height))
            ++end;
        return end;
    }

    // start is that of the line, u the anchor of these parts.
    void DrawRuns(const TextLine& line, std::size_t first, std::size_t end, double start, double u,
                  double base, Anchor anchor)
    {
        std::vector<StyledPiece> pieces;
        for (; first < end; ++first) {
            const LinePart& part = line.parts[first];
            const double place = start + part.x + ShareBefore(anchor) * part.width;
            const std::size_t blanks = first + 1 < end ? line.parts[first + 1].blanks : 0;
            pieces.push_back({StyleFor(part.look), PieceOf(part, line, place, base, anchor), blanks});
        }
        if (pieces.size() == 1)
            m_drawer.Draw(pieces.front().style, pieces.front().piece);
        else
            m_drawer.DrawRuns(u, pieces);
    }

    TextPiece PieceOf(const RunLook& look, std::string_view text) const
    {
        TextPiece piece;
        piece.text = text;
        piece.height = look.height;
        piece.widthFactor = look.widthFactor;
        piece.slant = look.slant;
        return piece;
    }

    TextPiece PieceOf(const LinePart& part, const TextLine& line, double u, double base, Anchor anchor) const
    {
        const RunLook& look = m_content.looks[part.look];
        TextPiece piece = PieceOf(look, WithPlainBlanks(part.text));
        piece.u = u;
        piece.v = base + RaiseOf(look, line.height);
        piece.width = part.width;
        piece.anchor = anchor;
        if (look.lines != 0)
            piece.linedParts.push_back({0, part.width, look.lines});
        return piece;
    }

    // Lines are broken: blanks that do not break are none but blanks.
    static std::string WithPlainBlanks(const std::string& text)
    {
        constexpr std::string_view kHard = "\xC2\xA0";
        std::string plain;
        std::size_t start = 0;
        for (std::size_t hard = text.find(kHard); hard != std::string::npos; hard = text.find(kHard, start)) {
            plain.append(text, start, hard - start).push_back(' ');
            start = hard + kHard.size();
        }
        return plain.append(text, start);
    }

    void DrawFraction(const LinePart& part, const TextLine& line, double u, double base)
    {
        const RunLook& look = m_content.looks[part.look];
        const FractionShape shape = ShapeOfFraction(part, look, line.height);
        const Style& style = StyleFor(part.look);
        TextPiece upper = PieceOf(look, part.text);
        upper.u = u + shape.upperX;
        upper.v = base + shape.upperY;
        m_drawer.Draw(style, upper);
        TextPiece lower = PieceOf(look, part.below);
        lower.u = u + shape.lowerX;
        lower.v = base + shape.lowerY;
        m_drawer.Draw(style, lower);
        if (part.kind == Kind::Fraction) {
            const double middle = base + (shape.upperY + shape.lowerY + look.height) / 2;
            m_drawer.DrawLine(style, {u, middle}, {u + shape.width, middle});
        } else if (part.kind == Kind::Diagonal) {
            m_drawer.DrawLine(style, {lower.u - look.height * kSlashWidth, base + shape.lowerY},
                              {lower.u, base + shape.top});
        }
    }

    const Style& StyleFor(std::uint32_t number)
    {
        const RunLook& look = m_content.looks[number];
        if (!look.hasColour)
            return m_placement.style;
        if (!m_coloured || m_colour != look.colour || m_trueColour != look.trueColour) {
            StyleOfPart part;
            part.colour = m_colour = look.colour;
            part.trueColour = m_trueColour = look.trueColour;
            m_coloured = m_styleOf(part);
        }
        return *m_coloured;
    }

    void ReportChanges() const
    {
        constexpr std::int32_t kFill = 1, kWindowFill = 2, kFrame = 16, kDown = 3;
        if ((m_entity.fill & (kFill | kWindowFill)) != 0)
            Report(Finding::Changed, "without its background fill");
        if ((m_entity.fill & kFrame) != 0)
            Report(Finding::Changed, "without its frame");
        if (m_entity.flow == kDown)
            Report(Finding::Changed, "vertical writing is drawn along a line");
        if (m_content.isSpaced)
            Report(Finding::Changed, "without distances between letters");
        if (m_content.isCut)
            Report(Finding::Cut, "a text of more than 256 KB");
    }

    void Report(Finding finding, std::string_view detail) const
    {
        m_placement.report.Add(finding, m_typeName, detail, m_entity.line);
    }

    const MText& m_entity;
    const Placement& m_placement;
    const PartStyler& m_styleOf;
    const std::string_view m_typeName;
    TextDrawer m_drawer;
    const bool m_hasColumns;
    MTextContent m_content;
    std::vector<TextLine> m_lines;
    std::vector<Column> m_columns;
    std::optional<Style> m_coloured; // the last one
    std::int32_t m_colour = 0;
    std::int32_t m_trueColour = 0;
};

// The attachment at which a text with that alignment is drawn.
std::int32_t AttachmentOf(const Text& entity)
{
    constexpr std::int32_t kMiddle = 4, kMiddleCentre = 5;
    if (entity.horizontal == kMiddle)
        return kMiddleCentre;
    const std::int32_t column = entity.horizontal == 1 || entity.horizontal == 2 ? entity.horizontal : 0;
    const std::int32_t row = entity.vertical == 3 ? 0 : entity.vertical == 2 ? 1 : 2;
    return 1 + row * 3 + column;
}

} // namespace

void DrawMText(const MText& entity, const Placement& placement, const PartStyler& styleOf,
               std::string_view typeName)
{
    MTextDrawing(entity, placement, styleOf, typeName).Draw();
}

void DrawMTextOf(const Text& entity, const Placement& placement, const PartStyler& styleOf,
                 std::string_view typeName)
{
    const bool isAtFirst = (entity.horizontal == 0 && entity.vertical == 0) || !entity.hasAlignment;
    MText text;
    text.line = entity.line;
    text.extrusion = entity.extrusion;
    text.point = FromObject(entity.extrusion).Apply(isAtFirst ? entity.point : entity.alignment);
    text.height = entity.height;
    const double angle = entity.rotation * kDegree;
    text.direction = FromObject(entity.extrusion).Direction({std::cos(angle), std::sin(angle), 0});
    text.hasDirection = true;
    text.style = entity.style;
    text.text = entity.text;
    text.attachment = AttachmentOf(entity);
    DrawMText(text, placement, styleOf, typeName);
}

} // namespace prepare
