// Breaks an MTEXT's items into lines.
#pragma once

#include "prepare/plain/MTextCodes.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace prepare {

// What looks the same in a line, without a gap.
struct LinePart {
    MTextItem::Kind kind = MTextItem::Kind::Letters; // or one of the fractions
    std::uint32_t look = 0;
    std::string text; // of a fraction: the upper one
    std::string below;
    double x = 0; // from the line's start
    double width = 0;
    std::size_t blanks = 0;  // before it that are in no part
    bool isAfterTab = false; // what is before it ends anywhere
};

struct TextLine {
    std::vector<LinePart> parts;
    std::uint32_t paragraph = 0;
    bool isFirst = false; // of its paragraph
    bool endsColumn = false;
    double width = 0;   // without the blanks at its end
    double spread = 0;  // how much wider than usual the blanks between its parts are
    double height = 0;  // of its highest letters
    double ascent = 0;  // above the base line: more than height where there are fractions
    double descent = 0; // of fractions below it
};

// How much wider than its parts a slash makes a diagonal fraction, in heights of its letters.
inline constexpr double kSlashWidth = 0.5;

// A fraction's parts by its look, from the base line up and from its start.
struct FractionShape {
    double upperX = 0;
    double upperY = 0;
    double lowerX = 0;
    double lowerY = 0;
    double width = 0;
    double top = 0;
};
FractionShape ShapeOfFraction(const LinePart& part, const RunLook& look, double lineHeight);

// How far letters that are lower than their line are above the base line, by \A.
double RaiseOf(const RunLook& look, double lineHeight);

// Lines of at most that width, unless a word is longer; 0: only paragraphs end lines.
std::vector<TextLine> BreakIntoLines(const MTextContent& content, double width);

} // namespace prepare
