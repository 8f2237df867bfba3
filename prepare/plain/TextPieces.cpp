#include "prepare/plain/TextPieces.h"

#include "prepare/plain/Curves.h"
#include "prepare/plain/TextCodes.h"
#include "prepare/plain/TextMetrics.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace prepare {

namespace {

struct KindOfLine {
    std::uint8_t bit;
    double height; // above the base line, in heights of capitals
};

constexpr KindOfLine kKindsOfLines[] = {{kUnderline, -0.2}, {kOverline, 1.2}, {kStrike, 0.5}};

} // namespace

void TextDrawer::Draw(const Style& style, const TextPiece& piece)
{
    if (const std::optional<PlainText> text = LettersOf(piece)) {
        m_placement.budget.TakeText(text->text.size());
        m_placement.sink.Text(style, *text);
    }
    DrawLinedParts(style, piece);
}

void TextDrawer::DrawRuns(double u, double spread, std::span<const StyledPiece> pieces)
{
    std::vector<PlainRun> runs;
    double capitals = 1;    // how wide those of the first run are, where they are as wide as high
    std::size_t blanks = 0; // after the last run
    for (const auto& [style, piece, blanksAfter] : pieces) {
        const std::size_t before = std::min(piece.text.find_first_not_of(' '), piece.text.size());
        if (!runs.empty())
            runs.back().blanks = blanks + before;
        if (std::optional<PlainText> text = LettersOf(piece)) {
            blanks = piece.text.size() - before - text->text.size();
            m_placement.budget.TakeText(text->text.size());
            if (runs.empty())
                capitals = piece.height * piece.widthFactor;
            runs.push_back({style, std::move(*text)});
        } else {
            blanks += before;
        }
        blanks += blanksAfter;
    }
    if (!runs.empty())
        m_placement.sink.LineOfText(m_frame.At(u, pieces.front().piece.v), spread / capitals, runs);
    for (const StyledPiece& run : pieces)
        DrawLinedParts(run.style, run.piece);
}

// Blanks at the ends would be lost in a picture, and move what is centred: the point makes up for them.
std::optional<PlainText> TextDrawer::LettersOf(const TextPiece& piece)
{
    const std::size_t first = piece.text.find_first_not_of(' ');
    if (first == std::string::npos)
        return std::nullopt;
    const std::size_t last = piece.text.find_last_not_of(' ');
    const double blank = CharacterWidth(U' ') * piece.height * piece.widthFactor;
    const double before = blank * static_cast<double>(first);
    const double after = blank * static_cast<double>(piece.text.size() - 1 - last);
    const double share = ShareBefore(piece.anchor);

    PlainText text;
    text.text = piece.text.substr(first, last + 1 - first);
    text.point = m_frame.At(piece.u + before * (1 - share) - after * share, piece.v);
    text.along = piece.height * piece.widthFactor * m_frame.u;
    text.up = piece.height * (m_frame.v + piece.slant * m_frame.u);
    text.anchor = piece.anchor;
    text.style = m_textStyle;
    if (!IsDrawable(text.point) || !IsDrawable(text.along) || !IsDrawable(text.up))
        LeaveOut("numbers that are not finite");
    else if (!(std::fabs(Cross(text.along, text.up)) > 0))
        LeaveOut("seen edge-on");
    else
        return text;
    return std::nullopt;
}

void TextDrawer::DrawLinedParts(const Style& style, const TextPiece& piece)
{
    const double start = piece.u - piece.width * ShareBefore(piece.anchor);
    for (const LinedPart& part : piece.linedParts)
        for (const auto& [bit, height] : kKindsOfLines)
            if ((part.lines & bit) != 0) {
                const double v = piece.v + height * piece.height;
                const double lean = height * piece.height * piece.slant;
                DrawLine(style, {start + part.start + lean, v}, {start + part.end + lean, v});
            }
}

void TextDrawer::DrawLine(const Style& style, Point2 start, Point2 end)
{
    Style solid = style;
    solid.lineType = nullptr;
    solid.width = 0;
    const Point2 from = m_frame.At(start.x, start.y);
    const Point2 to = m_frame.At(end.x, end.y);
    if (!IsDrawable(from) || !IsDrawable(to) || from == to)
        return;
    m_placement.budget.Take(2);
    m_placement.sink.Line(solid, from, to);
}

void TextDrawer::LeaveOut(std::string_view reason)
{
    if (!m_hasReported)
        m_placement.report.Add(Finding::NotShown, m_typeName, reason, m_line);
    m_hasReported = true;
}

} // namespace prepare
