// Pieces of text with a place in a coordinate system of their own, and how they are drawn.
#pragma once

#include "prepare/plain/Placement.h"
#include "prepare/plain/Plain.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace prepare {

// A text's own coordinates: u along its lines, v up, both in drawing units; origin, u and v as they are in
// the output's plane.
struct TextFrame {
    Point2 origin;
    Point2 u{1, 0};
    Point2 v{0, 1};

    Point2 At(double along, double up) const { return origin + along * u + up * v; }
};

// A part of a line that has a line along it, from its start, in drawing units.
struct LinedPart {
    double start = 0;
    double end = 0;
    std::uint8_t lines = 0; // kUnderline, ...
};

// One line of text that looks the same all over.
struct TextPiece {
    std::string text; // UTF-8, without codes
    double u = 0;     // of the anchor, on the base line
    double v = 0;
    double height = 0;      // of capitals
    double widthFactor = 1; // above 0
    double slant = 0;       // how far a letter's top leans over, in heights
    double width = 0;       // from its start to its end by the metrics, blanks included
    Anchor anchor = Anchor::Start;
    std::vector<LinedPart> linedParts;
};

// A piece with its own style; the next one follows it on the line.
struct StyledPiece {
    Style style;
    TextPiece piece;
    std::size_t blanks = 0; // between it and the next one
};

// How far before the anchor a line of that width begins, in widths.
constexpr double ShareBefore(Anchor anchor)
{
    return anchor == Anchor::Start ? 0 : anchor == Anchor::Middle ? 0.5 : 1;
}

// Draws pieces of one entity.
class TextDrawer {
public:
    // typeName is the entity's, for reports; textStyle the name of its text style.
    TextDrawer(const Placement& placement, const TextFrame& frame, std::string_view typeName,
               std::uint64_t line, NameId textStyle)
        : m_placement(placement), m_frame(frame), m_typeName(typeName), m_line(line), m_textStyle(textStyle)
    {
    }

    // A piece of blanks shows nothing but its lines. A piece that cannot be seen or whose numbers are not
    // finite is left out and reported.
    void Draw(const Style& style, const TextPiece& piece);

    // Pieces along one line and of one width factor and slant, each at its own place; u is that of the whole
    // line's anchor, at the height of the first one. If spread is above 0, the blanks between them are wider
    // than usual by that, and u is where the line ends.
    void DrawRuns(double u, double spread, std::span<const StyledPiece> pieces);

    // A line that belongs to the text, from and to its own coordinates.
    void DrawLine(const Style& style, Point2 start, Point2 end);

private:
    std::optional<PlainText> LettersOf(const TextPiece& piece);
    void DrawLinedParts(const Style& style, const TextPiece& piece);
    void LeaveOut(std::string_view reason);

    const Placement& m_placement;
    const TextFrame m_frame;
    const std::string_view m_typeName;
    const std::uint64_t m_line;
    const NameId m_textStyle;
    bool m_hasReported = false; // an entity is reported once
};

} // namespace prepare
