#include "prepare/plain/DrawMText.h"

#include "base/Pi.h"
#include "prepare/plain/Curves.h"
#include "prepare/plain/MTextCodes.h"
#include "prepare/plain/MTextLayout.h"
#include "prepare/plain/TextCodes.h"
#include "prepare/plain/TextPieces.h"
#include "prepare/plain/TextStyles.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace prepare {

namespace {

using Kind = MTextItem::Kind;

class MTextDrawing {
public:
    MTextDrawing(const MText& entity, const Placement& placement, const PartStyler& styleOf,
                 std::string_view typeName)
        : m_entity(entity), m_placement(placement), m_styleOf(styleOf), m_typeName(typeName),
          m_frame(FrameOf()), m_drawer(placement, m_frame, typeName, entity.line, entity.style),
          m_content(ReadContent()), m_layout(entity, m_content, IsSideBySide())
    {
    }

    void Draw()
    {
        DrawBackground();
        if (m_layout.IsSideBySide())
            DrawSideBySide();
        for (std::size_t column = 0; column < m_layout.Columns().size(); ++column)
            DrawColumn(column);
        ReportChanges();
    }

    double Width() const { return m_layout.Width(); }

private:
    MTextContent ReadContent() const
    {
        const Drawing& drawing = m_placement.drawing;
        const TextStyle* style = drawing.FindTextStyle(m_entity.style);
        RunLook first;
        first.height = TextHeightOf(m_entity.height, style, drawing.header);
        first.widthFactor = WidthFactorOf(style != nullptr ? style->widthFactor : 1);
        first.slant = SlantOf(style != nullptr ? style->oblique : 0);
        return ReadMText(m_entity.text, first, drawing.header.Text("$DWGCODEPAGE"));
    }

    TextFrame FrameOf() const
    {
        const Matrix fromObject = FromObject(m_entity.extrusion);
        Point3 along = m_entity.direction;
        if (!m_entity.hasDirection || !(Length(along) > 0)) {
            // The angle is from the world's x axis, even where the text is seen from below; only in a tilted
            // plane is it from the plane's own.
            const double angle = m_entity.rotation * kRadiansPerDegree;
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

    // What is behind the text: an area of a colour or one that hides what was drawn before, and a frame.
    void DrawBackground()
    {
        const bool isFilled = (m_entity.fill & (MText::kFill | MText::kWindowFill)) != 0;
        if ((!isFilled && (m_entity.fill & MText::kFrame) == 0) || m_content.letters.empty())
            return;
        const double margin = FillMargin();
        const std::vector<Point2> box = Box(margin);
        const std::vector<Point2> frame = Box(m_entity.frameGap >= 0 ? m_entity.frameGap : margin);
        if (!AreDrawable(box) || !AreDrawable(frame))
            return;
        m_placement.budget.Take(box.size());
        const bool hasColour = m_entity.hasFillColour || m_entity.fillTrueColour != kNoTrueColour;
        if (isFilled && hasColour && (m_entity.fill & MText::kWindowFill) == 0)
            m_placement.sink.Fill(FillStyle(), {&box, 1});
        else if (isFilled)
            m_placement.sink.Mask({&box, 1});
        if ((m_entity.fill & MText::kFrame) != 0)
            DrawFrame(frame);
    }

    static bool AreDrawable(const std::vector<Point2>& points)
    {
        return std::all_of(points.begin(), points.end(), [](Point2 p) { return IsDrawable(p); });
    }

    double FillMargin() const
    {
        constexpr double kMost = 10;
        const double scale = m_entity.fillScale >= 1 && m_entity.fillScale <= kMost ? m_entity.fillScale : 1;
        return (scale - 1) * m_content.looks.front().height;
    }

    // The corners of all columns and the margin around them.
    std::vector<Point2> Box(double margin) const
    {
        const double left = m_layout.Left() - margin, right = left + m_layout.Width() + 2 * margin;
        const double top = m_layout.Top() + margin, bottom = top - m_layout.Height() - 2 * margin;
        return {m_frame.At(left, bottom), m_frame.At(right, bottom), m_frame.At(right, top),
                m_frame.At(left, top)};
    }

    Style FillStyle() const
    {
        StyleOfPart part;
        part.colour = m_entity.fillColour;
        part.trueColour = m_entity.fillTrueColour;
        return m_styleOf(part);
    }

    void DrawFrame(const std::vector<Point2>& corners)
    {
        Style style = m_placement.style;
        style.lineType = nullptr;
        std::vector<PlainVertex> vertices;
        vertices.reserve(corners.size());
        for (const Point2 corner : corners)
            vertices.push_back({corner, 0});
        m_placement.sink.Polyline(style, vertices, true);
    }

    // Vertical writing puts the lines of a font that cannot be vertical side by side.
    bool IsSideBySide() const
    {
        const TextStyle* style = m_placement.drawing.FindTextStyle(m_entity.style);
        return m_entity.flow == MText::kFlowsDown && style != nullptr && IsTrueType(style->font);
    }

    void DrawSideBySide()
    {
        double left = m_layout.Left();
        for (const TextLine& line : m_layout.Lines()) {
            DrawLine(line, left, left + line.width, 0);
            left += line.width + m_layout.GapAfter(line);
        }
    }

    void DrawColumn(std::size_t number)
    {
        const MTextLayout::Column& column = m_layout.Columns()[number];
        const double left = m_layout.LeftOf(number), right = left + m_layout.ColumnWidth();
        double base = m_layout.Top();
        for (std::size_t i = column.first; i < column.end; ++i) {
            const TextLine& line = m_layout.Lines()[i];
            base -= i == column.first ? line.ascent : m_layout.DistanceTo(i);
            DrawLine(line, left, right, base);
        }
    }

    // 0 left, 0.5 centred, 1 right.
    double ShareOf(const TextLine& line) const
    {
        switch (m_content.paragraphs[line.paragraph].alignment) {
        case LineAlignment::Left:
        case LineAlignment::Justified:
        case LineAlignment::Distributed:
            return 0;
        case LineAlignment::Centre:
            return 0.5;
        case LineAlignment::Right:
            return 1;
        default:
            return m_layout.ShareAcross();
        }
    }

    void DrawLine(const TextLine& line, double left, double right, double base)
    {
        const double share = ShareOf(line);
        left += m_layout.IndentOf(line);
        right -= m_content.paragraphs[line.paragraph].right;
        const double anchor = left + (right - left) * share;
        // A part that is a whole line is anchored as the line is aligned, so that it stays aligned in a font
        // of another width.
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

    // Parts that can be written as one: from the first on, those in letters of the same proportions, without
    // a tab or a fraction between them.
    std::size_t EndOfRuns(const TextLine& line, std::size_t first) const
    {
        const auto lookOf = [&](std::size_t i) { return m_content.looks[line.parts[i].look]; };
        const RunLook look = lookOf(first);
        std::size_t end = first + 1;
        while (line.parts[first].kind == Kind::Letters && end < line.parts.size() &&
               line.parts[end].kind == Kind::Letters && !line.parts[end].isAfterTab &&
               lookOf(end).widthFactor == look.widthFactor && lookOf(end).slant == look.slant)
            ++end;
        return end;
    }

    // start is that of the line, u the anchor of these parts. A line that is spread is placed by their end.
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
        const LinePart& last = line.parts[end - 1];
        if (pieces.size() == 1)
            m_drawer.Draw(pieces.front().style, pieces.front().piece);
        else
            m_drawer.DrawRuns(line.spread > 0 ? start + last.x + last.width : u, line.spread, pieces);
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

    // Lines are already broken, so non-breaking blanks are ordinary blanks now.
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
        if (m_entity.flow == MText::kFlowsDown && !m_layout.IsSideBySide())
            Report(Finding::Changed, "vertical writing is drawn along a line");
        if (m_content.hasWrongCodes)
            Report(Finding::Repaired, kWrongCode);
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
    const TextFrame m_frame;
    TextDrawer m_drawer;
    const MTextContent m_content;
    const MTextLayout m_layout;
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

double DrawMText(const MText& entity, const Placement& placement, const PartStyler& styleOf,
                 std::string_view typeName)
{
    MTextDrawing drawing(entity, placement, styleOf, typeName);
    drawing.Draw();
    return drawing.Width();
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
    const double angle = entity.rotation * kRadiansPerDegree;
    text.direction = FromObject(entity.extrusion).Direction({std::cos(angle), std::sin(angle), 0});
    text.hasDirection = true;
    text.style = entity.style;
    text.text = entity.text;
    text.attachment = AttachmentOf(entity);
    DrawMText(text, placement, styleOf, typeName);
}

} // namespace prepare
