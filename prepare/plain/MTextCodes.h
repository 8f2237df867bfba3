// An MTEXT's text as items: words, blanks, fractions and ends of paragraphs, with how each looks.
#pragma once

#include "prepare/drawing/Entities.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace prepare {

// How letters look.
struct RunLook {
    double height = 1;
    double widthFactor = 1;
    double slant = 0;           // how far a letter's top leans over, in heights
    std::uint8_t lines = 0;     // kUnderline, ...
    std::uint8_t alignment = 0; // of lower letters in a line: at the base line, halfway, at the top
    bool hasColour = false;     // its own, by the next two
    std::int32_t colour = kByLayer;
    std::int32_t trueColour = kNoTrueColour;

    friend bool operator==(const RunLook&, const RunLook&) = default;
};

// Justified lines take all of their width, but for the last one of a paragraph; distributed ones all do.
enum class LineAlignment : std::uint8_t { AsAttached, Left, Centre, Right, Justified, Distributed };

// How a paragraph's lines are laid out; lengths in drawing units.
struct ParagraphLook {
    double firstIndent = 0; // of the first line, from left
    double left = 0;
    double right = 0;
    LineAlignment alignment = LineAlignment::AsAttached;
    std::vector<double> tabs; // from the left side of the column, ascending
};

struct MTextItem {
    enum class Kind : std::uint8_t {
        Letters,
        Ideograph, // a line may break before and after it
        Blank,
        Tab,
        Tolerance,    // one text over another
        Fraction,     // with a line between them
        Diagonal,     // with a slash between them
        ParagraphEnd, // look is that of an empty line
        ColumnEnd,
    };
    Kind kind = Kind::Letters;
    std::uint32_t look = 0;  // or paragraph's, of an end
    std::uint32_t start = 0; // of its letters in letters
    std::uint32_t size = 0;  // of the letters; of the upper part
    std::uint32_t below =
        0; // size of the lower part, right after the upper one; an end: the paragraph's look
};

struct MTextContent {
    std::string letters;
    std::vector<MTextItem> items; // the last one is a ParagraphEnd
    std::vector<RunLook> looks;
    std::vector<ParagraphLook> paragraphs;
    bool isCut = false;         // text was longer than any program writes: its end is missing
    bool hasWrongCodes = false; // that mean no character
    bool isSpaced = false;      // the text sets distances between letters, which items lack

    std::string_view Text(const MTextItem& item) const
    {
        return std::string_view(letters).substr(item.start, item.size);
    }
    std::string_view Below(const MTextItem& item) const
    {
        return std::string_view(letters).substr(item.start + item.size, item.below);
    }
};

// Reads an MTEXT's text, which begins with that look. Codes that are not known are left out. Throws
// std::bad_alloc.
MTextContent ReadMText(std::string_view text, const RunLook& first, std::string_view codePage);

} // namespace prepare
