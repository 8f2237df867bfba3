// The variables that say how a dimension is drawn.
#pragma once

#include "prepare/drawing/Drawing.h"

#include <cstdint>
#include <string>

namespace prepare {

// Each with its group code in a DIMSTYLE, where it has one, and what the format takes when a style is silent.
// Lengths are multiplied by the scale already.
struct DimensionStyle {
    double scale = 1;                     // 40
    double arrowSize = 0.18;              // 41
    double extensionOffset = 0.0625;      // 42: from the measured point
    double extensionBeyond = 0.18;        // 44: past the dimension line
    double rounding = 0;                  // 45
    double lineBeyond = 0;                // 46: of the dimension line past ticks
    double plusTolerance = 0;             // 47
    double minusTolerance = 0;            // 48
    double fixedExtension = 1;            // 49
    double jogAngle = 0.7853981633974483; // 50, radians
    double textHeight = 0.18;             // 140
    double centreMark = 0.09;             // 141; below 0: with centre lines
    double tickSize = 0;                  // 142; 0: arrowheads
    double alternateFactor = 25.4;        // 143
    double factor = 1;                    // 144
    double textOffset = 0;                // 145, in heights of the text: above the line where placement is 0
    double toleranceHeight = 1;           // 146, in heights of the text
    double gap = 0.09;                    // 147; below 0: the text is framed
    double alternateRounding = 0;         // 148

    std::int32_t textFill = 0;               // 69: none, the background's colour, textFillColour
    std::int32_t textFillColour = kByBlock;  // 70 after the entry's own
    std::int32_t hasTolerance = 0;           // 71
    std::int32_t hasLimits = 0;              // 72
    std::int32_t isHorizontalInside = 1;     // 73
    std::int32_t isHorizontalOutside = 1;    // 74
    std::int32_t hidesExtension1 = 0;        // 75
    std::int32_t hidesExtension2 = 0;        // 76
    std::int32_t placement = 0;              // 77: on the line, above, on the outer side, as in Japan, below
    std::int32_t zeros = 0;                  // 78
    std::int32_t angleZeros = 0;             // 79
    std::int32_t arcSymbol = 0;              // 90: before the text, above it, none
    std::int32_t hasAlternate = 0;           // 170
    std::int32_t alternateDecimals = 2;      // 171
    std::int32_t drawsLineInside = 0;        // 172: though the text is outside
    std::int32_t hasTwoArrows = 0;           // 173: arrows by 343 and 344
    std::int32_t keepsTextInside = 0;        // 174
    std::int32_t hidesLineOutside = 0;       // 175
    std::int32_t lineColour = kByBlock;      // 176
    std::int32_t extensionColour = kByBlock; // 177
    std::int32_t textColour = kByBlock;      // 178
    std::int32_t angleDecimals = 0;          // 179; below 0: as decimals
    std::int32_t decimals = 4;               // 271; of fractions: powers of 2 below the line
    std::int32_t toleranceDecimals = 4;      // 272
    std::int32_t alternateUnit = 2;          // 273, as unit but with fractions by their own numbers
    std::int32_t alternateToleranceDecimals = 2; // 274
    std::int32_t angleUnit = 0;                  // 275
    std::int32_t fraction = 0;                   // 276: horizontal, diagonal, in the line
    std::int32_t unit = 2;                       // 277
    std::int32_t separator = '.';                // 278
    std::int32_t textMove = 0;                   // 279: of a moved text: the line follows, a leader, neither
    std::int32_t justification = 0;              // 280
    std::int32_t hidesLine1 = 0;                 // 281
    std::int32_t hidesLine2 = 0;                 // 282
    std::int32_t toleranceAlignment = 1;         // 283: of stacks to the number, as \A of an MTEXT
    std::int32_t toleranceZeros = 0;             // 284
    std::int32_t alternateZeros = 0;             // 285
    std::int32_t alternateToleranceZeros = 0;    // 286
    std::int32_t fit = 3;               // 289: what goes outside first: both, arrows, text, what fits best
    std::int32_t hasFixedExtension = 0; // 290
    std::int32_t lineWeight = kWeightByBlock;      // 371
    std::int32_t extensionWeight = kWeightByBlock; // 372

    std::string post;          // 3: around the value
    std::string alternatePost; // 4
    std::string arrow1;        // the arrowheads' blocks; empty: the usual one
    std::string arrow2;
    NameId textStyle = kNoName;
    NameId lineType = kNoName;     // 345; none: the entity's
    NameId extensionTypes[2] = {}; // 346, 347
};

bool IsUpToR12(const Header& header);

// The style of an entity: the one it names, or the drawing's variables if there is none, with what the entity
// itself overrides.
DimensionStyle DimensionStyleOf(const Drawing& drawing, NameId style,
                                const std::vector<std::pair<std::int32_t, std::string>>& overrides);

} // namespace prepare
