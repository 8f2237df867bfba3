// What the module draws in its own way, and how a prepared drawing makes up for it: the complete list.
// The numbers are those of docs/quirks.md.
//
//    5  a line is cut after 1023 bytes             texts are cut after 1000, with a report
//   14  TABLES without a table hides a section     no table, no section
//   16  table entries need their markers           they have them
//   21, 22, 26 to 29, 33, 38, 39, 41, 42           each entity says its colour, weight and line type itself;
//       what layers, by block, visibility and      no layer is used, and what is not shown is not written
//       paper space do
//   24  true colours exchange red and blue         they are exchanged before
//   25  true black is no true colour               it is index 7, which shows on any background
//   32  weights count as drawing units             they are the stroke's width in drawing units
//   34  widths of polylines are dropped            they are weights, too
//   35  dash patterns are not scaled               each pattern is written in the scale that it is used in
//   37  a dot is a dash of length 0                it is a dash as long as the stroke is wide
//   45  coordinates are 32-bit floats              a drawing far from the origin is put into a block near it
//   48  extrusion mirrors an arc                   none is written
//   50  an arc of a whole turn vanishes            it is a circle, and nearly a turn is two arcs
//   52  long elliptical arcs are drawn short       they are two arcs
//   53  short elliptical arcs become whole         they are lines
//   56  bulges are dropped                         they are arcs, or chords near enough
//   57  any flag closes a polyline                 no other is written
//   62  texts are one height below their point     their points are one height above
//   63  texts are not turned or stretched          they are in blocks, which are
//   64, 65  second points and other anchors        the point is the anchor, at the start, middle or end
//   67, 68  font sizes have two decimals, 0 is 5   a drawing of small texts is made larger in a block
//   77  base points are ignored                    there are none
//   81  inserts have no style                      what is in a block has its own
//   82  rows and columns are drawn once            there are none
//  119, 120  unknown codes are reported            none is written
#pragma once

#include "prepare/plain/Plain.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace prepare {

// A group pair.
struct CodeAndValue {
    int code;
    std::int32_t value;

    friend bool operator==(const CodeAndValue&, const CodeAndValue&) = default;
};

// 24, 25.
CodeAndValue ColourForModule(const Colour& colour);

// 32, 34: the weight (370) that gives a stroke of that width, at least 1.
std::int32_t WeightForModule(double width);

// 50: calls take(start, end) for each part that an arc has to be written as, in radians.
template <class Take>
void ForArcParts(double start, double end, const Take& take)
{
    constexpr double kNearlyATurn = 6.26; // 359 degrees: the ends of a larger one are hardly apart
    const double middle = (start + end) / 2;
    if (end - start < kNearlyATurn)
        return take(start, end);
    take(start, middle);
    take(middle, end);
}

// 52, 53: what the module makes of an elliptical arc of these parameters.
enum class DrawnEllipse : std::uint8_t { Right, WrongSide, Whole };
DrawnEllipse HowModuleDraws(double ratio, double start, double end);

// 62, 63, 67: how a text comes to its place.
struct TextPlace {
    double size = 0;          // of the font: what 40 says
    bool isUpright = false;   // the text alone does it; else a block with the text at its origin is
    double widthFactor = 1;   // how much wider than high it makes letters
    double innerRotation = 0; // turned by this (radians; 0 but for slanted letters),
    double scaleX = 1;        // scaled,
    double scaleY = 1;        // below 0: mirrored,
    double rotation = 0;      // and turned again
};
TextPlace TextPlaceForModule(Point2 along, Point2 up);

// The size of a font whose capitals are 1 high. Those of DejaVu Sans are 0.729 of the font size, of Arial
// 0.716 and of Helvetica 0.718.
inline constexpr double kFontSizeOfCapitals = 1.39;

// 5: a value that the module reads whole: at most 1000 bytes of whole characters, and none that controls.
inline constexpr std::size_t kLongestValue = 1000;
std::string ValueForModule(std::string_view utf8, bool& isCut);

// 45: what lies between a coordinate and the next one that a 32-bit float can say.
double FloatStep(double coordinate);

} // namespace prepare
