#include "prepare/plain/MTextLines.h"

#include "prepare/plain/TextMetrics.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace prepare {

namespace {

using Kind = MTextItem::Kind;

bool IsFraction(Kind kind)
{
    return kind == Kind::Tolerance || kind == Kind::Fraction || kind == Kind::Diagonal;
}

double WidthOf(std::string_view text, const RunLook& look)
{
    return TextWidth(text) * look.height * look.widthFactor;
}

// Between the parts of a fraction, in heights of its letters; those of a diagonal one overlap.
constexpr double kFractionGap = 0.4;
constexpr double kDiagonalGap = -0.2;
constexpr double kFractionMargin = 0.1;

// Makes the blanks of a line wider, so that it takes the room. Those of parts with lines along them stay.
class Stretcher {
public:
    Stretcher(const MTextContent& content, TextLine& line) : m_content(content), m_line(line) {}

    void Stretch(double room)
    {
        const bool hasTabs = std::any_of(m_line.parts.begin(), m_line.parts.end(),
                                         [](const LinePart& part) { return part.isAfterTab; });
        std::size_t blanks = 0;
        for (const LinePart& part : m_line.parts)
            blanks += part.blanks + BlanksIn(part);
        if (hasTabs || blanks == 0 || !(room > m_line.width))
            return;
        m_more = (room - m_line.width) / static_cast<double>(blanks);
        for (const LinePart& part : m_line.parts)
            Take(part);
        m_line.parts = std::move(m_parts);
        m_line.width = room;
        m_line.spread = m_more;
    }

private:
    bool MayBeSplit(const LinePart& part) const
    {
        return !IsFraction(part.kind) && m_content.looks[part.look].lines == 0;
    }

    std::size_t BlanksIn(const LinePart& part) const
    {
        return MayBeSplit(part)
                   ? static_cast<std::size_t>(std::count(part.text.begin(), part.text.end(), ' '))
                   : 0;
    }

    void Take(const LinePart& part)
    {
        Widen(part.blanks);
        if (!MayBeSplit(part))
            return Add(part, part.x);
        const RunLook& look = m_content.looks[part.look];
        double x = part.x;
        for (std::string_view rest = part.text; !rest.empty();) {
            const std::size_t blanks = std::min(rest.find_first_not_of(' '), rest.size());
            Widen(blanks);
            x += WidthOf(rest.substr(0, blanks), look);
            rest.remove_prefix(blanks);
            LinePart word = part;
            word.text = rest.substr(0, rest.find(' '));
            word.width = WidthOf(word.text, look);
            rest.remove_prefix(word.text.size());
            const double width = word.width;
            if (!word.text.empty())
                Add(std::move(word), x);
            x += width;
        }
    }

    void Widen(std::size_t blanks)
    {
        m_blanks += blanks;
        m_shift += m_more * static_cast<double>(blanks);
    }

    void Add(LinePart part, double x)
    {
        part.x = x + m_shift;
        part.blanks = std::exchange(m_blanks, 0);
        m_parts.push_back(std::move(part));
    }

    const MTextContent& m_content;
    TextLine& m_line;
    double m_more = 0; // of each blank
    double m_shift = 0;
    std::size_t m_blanks = 0; // since the last part
    std::vector<LinePart> m_parts;
};

class LineBreaker {
public:
    LineBreaker(const MTextContent& content, double width) : m_content(content), m_limit(width) {}

    std::vector<TextLine> Break()
    {
        m_line.isFirst = true;
        std::size_t first = 0;
        for (std::size_t i = 0; i < m_content.items.size(); ++i) {
            const Kind kind = m_content.items[i].kind;
            if (kind != Kind::ParagraphEnd && kind != Kind::ColumnEnd)
                continue;
            BreakParagraph(first, i);
            first = i + 1;
        }
        return std::move(m_lines);
    }

private:
    void BreakParagraph(std::size_t first, std::size_t end)
    {
        const MTextItem& ending = m_content.items[end];
        m_line.paragraph = ending.below;
        m_isOneLine = first == 0 && IsLast(end) && IsNearlyOneLine(end);
        while (first < end) {
            const std::size_t next = EndOfWord(first, end);
            const Kind kind = m_content.items[first].kind;
            if (kind == Kind::Blank)
                m_blanks.push_back(first);
            else if (kind == Kind::Tab)
                AddTab();
            else
                AddWord(first, next);
            first = next;
        }
        AddLinedBlanks();
        if (Paragraph().alignment == LineAlignment::Distributed)
            Stretch();
        m_line.endsColumn = ending.kind == Kind::ColumnEnd;
        if (m_line.height == 0)
            m_line.height = m_content.looks[ending.look].height;
        EndLine();
        m_line.isFirst = true;
    }

    // Whether nothing but empty paragraphs follows the one that ends there.
    bool IsLast(std::size_t end) const
    {
        return std::all_of(m_content.items.begin() + static_cast<std::ptrdiff_t>(end), m_content.items.end(),
                           [](const MTextItem& item) { return item.kind == Kind::ParagraphEnd; });
    }

    // Whether the only paragraph is wider than its column by no more than fonts differ. Programs state the
    // width of a text of one line in its author's font as that of its column.
    bool IsNearlyOneLine(std::size_t end) const
    {
        constexpr double kFontsDifferBy = 1.1;
        while (end > 0 && m_content.items[end - 1].kind == Kind::Blank)
            --end;
        const double most = Room() * kFontsDifferBy;
        double width = 0;
        for (std::size_t i = 0; i < end && width <= most; ++i) {
            if (m_content.items[i].kind == Kind::Tab)
                return false;
            width += WidthOfItem(m_content.items[i]);
        }
        return width <= most;
    }

    std::size_t EndOfWord(std::size_t first, std::size_t end) const
    {
        const auto joins = [&](std::size_t i) {
            const Kind kind = m_content.items[i].kind;
            return kind == Kind::Letters || IsFraction(kind);
        };
        std::size_t next = first + 1;
        if (joins(first))
            while (next < end && joins(next))
                ++next;
        return next;
    }

    const ParagraphLook& Paragraph() const { return m_content.paragraphs[m_line.paragraph]; }

    // From the left side of the column to the line's start.
    double Indent() const { return Paragraph().left + (m_line.isFirst ? Paragraph().firstIndent : 0); }

    double Room() const { return m_limit - Indent() - Paragraph().right; }

    bool Fits(double width) const
    {
        constexpr double kRounding = 1e-6;
        return m_isOneLine || !(m_limit > 0) || m_x + width <= Room() * (1 + kRounding);
    }

    double WidthOfItems(std::size_t first, std::size_t end) const
    {
        double width = 0;
        for (; first < end; ++first)
            width += WidthOfItem(m_content.items[first]);
        return width;
    }

    double WidthOfItem(const MTextItem& item) const
    {
        const RunLook& look = m_content.looks[item.look];
        if (!IsFraction(item.kind))
            return WidthOf(m_content.Text(item), look);
        return ShapeOfFraction(FractionOf(item), look, look.height).width;
    }

    LinePart FractionOf(const MTextItem& item) const
    {
        LinePart part;
        part.kind = item.kind;
        part.look = item.look;
        part.text = m_content.Text(item);
        part.below = m_content.Below(item);
        return part;
    }

    void AddWord(std::size_t first, std::size_t end)
    {
        double blanks = 0;
        for (const std::size_t blank : m_blanks)
            blanks += WidthOfItem(m_content.items[blank]);
        const bool hasOnlyBlanks = m_x == 0 && !m_blanks.empty();
        if (hasOnlyBlanks && !Fits(blanks))
            BreakAfterBlanks();
        else if (m_x > 0 && !Fits(blanks + WidthOfItems(first, end)))
            BreakLine();
        AddBlanks();
        for (; first < end; ++first)
            AddItem(m_content.items[first]);
        m_line.width = m_x;
    }

    // Blanks that are wider than the column are a line of their own.
    void BreakAfterBlanks()
    {
        m_line.height = m_content.looks[m_content.items[m_blanks.front()].look].height;
        m_blanks.clear();
        EndLine();
    }

    void AddBlanks()
    {
        for (const std::size_t blank : m_blanks)
            AddItem(m_content.items[blank]);
        m_blanks.clear();
    }

    // Blanks at the end of a paragraph show only the lines along them.
    void AddLinedBlanks()
    {
        const bool areLined = std::any_of(m_blanks.begin(), m_blanks.end(), [&](std::size_t blank) {
            return m_content.looks[m_content.items[blank].look].lines != 0;
        });
        if (areLined) {
            AddBlanks();
            m_line.width = m_x;
        }
        m_blanks.clear();
    }

    void AddItem(const MTextItem& item)
    {
        const double width = WidthOfItem(item);
        const RunLook& look = m_content.looks[item.look];
        if (IsFraction(item.kind)) {
            BeginPart(FractionOf(item), width);
        } else if (JoinsLast(look)) {
            m_line.parts.back().text += m_content.Text(item);
            m_line.parts.back().width += width;
        } else if (item.kind != Kind::Blank || look.lines != 0) {
            LinePart part;
            part.look = item.look;
            part.text = m_content.Text(item);
            BeginPart(std::move(part), width);
        } else {
            ++m_loneBlanks;
        }
        m_x += width;
        m_line.height = std::max(m_line.height, look.height);
    }

    void BeginPart(LinePart&& part, double width)
    {
        part.x = m_x;
        part.width = width;
        part.blanks = std::exchange(m_loneBlanks, 0);
        part.isAfterTab = std::exchange(m_isAfterTab, false);
        m_line.parts.push_back(std::move(part));
    }

    // Whether more letters of that look go on where the last part ends.
    bool JoinsLast(const RunLook& look) const
    {
        if (m_line.parts.empty() || IsFraction(m_line.parts.back().kind))
            return false;
        const LinePart& last = m_line.parts.back();
        return m_content.looks[last.look] == look && std::fabs(last.x + last.width - m_x) <= 1e-9 * m_x;
    }

    // To the next stop; after the last one stops are four letters apart.
    void AddTab()
    {
        AddBlanks();
        m_isAfterTab = true;
        m_loneBlanks = 0;
        const double place = Indent() + m_x;
        const std::vector<double>& tabs = Paragraph().tabs;
        const auto stop = std::upper_bound(tabs.begin(), tabs.end(), place);
        const double distance = 4 * m_content.looks.front().height;
        m_x = (stop != tabs.end() ? *stop : (std::floor(place / distance) + 1) * distance) - Indent();
    }

    void BreakLine()
    {
        m_blanks.clear();
        if (Paragraph().alignment == LineAlignment::Justified ||
            Paragraph().alignment == LineAlignment::Distributed)
            Stretch();
        EndLine();
    }

    void Stretch()
    {
        if (m_limit > 0)
            Stretcher(m_content, m_line).Stretch(Room());
    }

    void EndLine()
    {
        for (const LinePart& part : m_line.parts) {
            if (!IsFraction(part.kind))
                continue;
            const FractionShape shape = ShapeOfFraction(part, m_content.looks[part.look], m_line.height);
            m_line.ascent = std::max(m_line.ascent, shape.top);
            m_line.descent = std::max(m_line.descent, -shape.lowerY);
        }
        m_line.ascent = std::max(m_line.ascent, m_line.height);
        const std::uint32_t paragraph = m_line.paragraph;
        m_lines.push_back(std::exchange(m_line, {}));
        m_line.paragraph = paragraph;
        m_x = 0;
        m_loneBlanks = 0;
        m_isAfterTab = false;
    }

    const MTextContent& m_content;
    const double m_limit;
    std::vector<TextLine> m_lines;
    TextLine m_line;
    double m_x = 0;                    // where the next item begins, from the line's start
    std::vector<std::size_t> m_blanks; // that are in the line if a word follows
    std::size_t m_loneBlanks = 0;      // after the last part
    bool m_isAfterTab = false;
    bool m_isOneLine = false; // and all of the text is
};

} // namespace

double RaiseOf(const RunLook& look, double lineHeight)
{
    return look.alignment * (lineHeight - look.height) / 2;
}

FractionShape ShapeOfFraction(const LinePart& part, const RunLook& look, double lineHeight)
{
    const double upper = WidthOf(part.text, look), lower = WidthOf(part.below, look);
    const double gap = (part.kind == Kind::Diagonal ? kDiagonalGap : kFractionGap) * look.height;
    const double margin = kFractionMargin * look.height;
    const double whole = 2 * look.height + gap;

    FractionShape shape;
    shape.lowerY = look.alignment * (lineHeight - whole) / 2;
    shape.upperY = shape.lowerY + look.height + gap;
    shape.top = shape.lowerY + whole;
    shape.upperX = margin;
    shape.lowerX = margin;
    if (part.kind == Kind::Diagonal) {
        shape.lowerX += upper + kSlashWidth * look.height;
        shape.width = shape.lowerX + lower + margin;
        return shape;
    }
    const double wider = std::max(upper, lower);
    shape.width = wider + 2 * margin;
    if (part.kind == Kind::Fraction) {
        shape.upperX += (wider - upper) / 2;
        shape.lowerX += (wider - lower) / 2;
    }
    return shape;
}

std::vector<TextLine> BreakIntoLines(const MTextContent& content, double width)
{
    return LineBreaker(content, width).Break();
}

} // namespace prepare
