// What every drawing is rewritten into: a few plain kinds of entities in the plane, with their styles
// resolved.
#pragma once

#include "prepare/drawing/Drawing.h"
#include "prepare/drawing/Point.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace prepare {

struct Colour {
    bool isTrue = false;
    std::uint32_t rgb = 0;  // 0xRRGGBB of a true colour
    std::int32_t index = 7; // 1 to 255 of any other; 7 is what shows on the background

    friend bool operator==(const Colour&, const Colour&) = default;
};

struct Style {
    Colour colour;
    std::int32_t weight = 25; // hundredths of a millimetre on paper, 0: the thinnest
    double width = 0;         // of a wide polyline, in drawing units; 0: weight counts
    // Null or without dashes: solid. One with a name is the drawing's; one without may be gone after the call
    // that has this style.
    const LineType* lineType = nullptr;
    double lineTypeScale = 1; // all scales multiplied
    NameId layer = kNoName;
};

struct PlainVertex {
    Point2 point;
    double bulge = 0; // of the segment that begins here: the tangent of a quarter of its angle
};

enum class Anchor : std::uint8_t { Start, Middle, End };

// One line of text without codes. It is set with capitals of height 1 and anchored at (0, 0); (x, y) is then
// drawn at point + x * along + y * up.
struct PlainText {
    std::string text; // UTF-8, not empty
    Point2 point;     // on the base line
    Point2 along;     // its length is the height times the width factor
    Point2 up;        // from the base line to the top of capitals
    Anchor anchor = Anchor::Start;
    NameId style = kNoName;
};

// A text of a line; the next one follows it.
struct PlainRun {
    Style style;
    PlainText text;
    std::size_t blanks = 0; // between it and the next one
};

// Takes plain entities in the order in which they are drawn. References are good during the call.
class PlainSink {
public:
    virtual ~PlainSink() = default;

    // One without length is a dot, as wide as its stroke.
    virtual void Line(const Style& style, Point2 start, Point2 end) = 0;
    virtual void Circle(const Style& style, Point2 centre, double radius) = 0;
    // Counter-clockwise, in radians; end is above start, by less than a turn.
    virtual void Arc(const Style& style, Point2 centre, double radius, double start, double end) = 0;
    // ratio is above 0 and at most 1; parameters as the arc's angles, a turn apart for a whole ellipse.
    virtual void Ellipse(const Style& style, Point2 centre, Point2 majorAxis, double ratio, double start,
                         double end) = 0;
    virtual void Polyline(const Style& style, std::span<const PlainVertex> vertices, bool isClosed) = 0;
    virtual void Text(const Style& style, const PlainText& text) = 0;
    // A line of writing: texts along one line, in letters of the same proportions, each at its own place.
    // The line begins, is centred or ends at point, as the anchor of its texts says. If spread is above 0,
    // the blanks between its texts are wider than usual by that, in lengths of the first one's along, and the
    // line ends at point while each text begins at its own. A sink that knows no runs takes texts.
    virtual void LineOfText(Point2 point, double spread, std::span<const PlainRun> runs);
    // The area within rings by the even-odd rule; each ring is closed and has three points or more. A sink
    // that has no fills draws the outlines.
    virtual void Fill(const Style& style, std::span<const std::vector<Point2>> rings);
    // An area that hides what was drawn before. A sink that cannot hide leaves it out.
    virtual void Mask(std::span<const std::vector<Point2>> rings);
    // A use of a block that the output made: mirrored in y if wanted, then turned (radians), then moved.
    virtual void Insert(std::size_t block, Point2 point, double rotation, bool isMirrored) = 0;
};

// Where plain entities go: the drawing itself, and blocks, which may be filled at any time until they end.
class PlainOutput {
public:
    virtual ~PlainOutput() = default;

    virtual PlainSink& Model() = 0;
    // What the model takes from now on is drawn in the order of these places, where they are given: all of
    // equal ones in the order in which it came.
    virtual void UsePlace(std::uint64_t) {}
    // The same of a block.
    virtual void UsePlaceInBlock(std::size_t, std::uint64_t) {}
    // Makes a block for a part of the drawing's block of that name and returns its number.
    virtual std::size_t NewBlock(std::string_view name) = 0;
    virtual PlainSink& Block(std::size_t number) = 0;
    // Nothing more comes to that block, and its sink is used no more. One that is inserted before is empty.
    virtual void EndBlock(std::size_t) {}
};

} // namespace prepare
