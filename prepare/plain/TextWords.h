// What texts say, without their codes.
#pragma once

#include "prepare/drawing/Drawing.h"
#include "prepare/plain/TextPieces.h"

#include <string>
#include <string_view>
#include <vector>

namespace prepare {

// The words of a single line, with the parts that have lines along them; lengths in heights of capitals.
struct Words {
    std::string text; // UTF-8
    std::vector<LinedPart> linedParts;
    double width = 0;
    bool hasWrongCodes = false; // that mean no character
};
Words ReadWords(std::string_view text, std::string_view codePage);

// Whether an attribute is one of several lines, whose text has the codes of an MTEXT.
bool IsOfSeveralLines(const Text& attribute);

// The text of an entity as the file has it, with its codes, and where it is in the coordinates of the drawing
// or of its block.
struct RawText {
    enum class Form { Line, Frame, Paragraphs };
    Form form = Form::Line; // which codes it has
    std::string text;       // empty for an entity that has none
    Point3 place;
};
RawText RawTextOf(const Entity& entity);

// What a text says. Paragraphs, columns and cells end in line feeds, but for the last one; the parts of a
// fraction have a slash or a blank between them.
std::string PlainWordsOf(const RawText& text, const Drawing& drawing);

} // namespace prepare
