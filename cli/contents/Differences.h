// What a picture shows differently from what the drawing states.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace plexorn {

enum class Difference {
    StraightBulges,
    NoWidths,
    UnturnedTexts,
    MovedTexts,
    FormattingCodes,
    LostPieces,
    OtherMeasures,
    HiddenLayers,
    Invisible,
    Extrusions,
    OneOfMany,
    BasePoints,
    PaperSpace,
    NoSheets,
};
inline constexpr std::size_t kDifferenceCount = 14;

// How many entities each of them concerns. An entity may count for several.
using DifferenceCounts = std::array<std::uint64_t, kDifferenceCount>;

struct DifferenceRow {
    std::string_view name; // for programs
    std::string_view singular;
    std::string_view plural;
};
// In the order of the enumeration.
inline constexpr std::array<DifferenceRow, kDifferenceCount> kDifferenceRows{{
    {"bulgesStraight", "polyline with straight bulges", "polylines with straight bulges"},
    {"widthsLeftOut", "polyline without its width", "polylines without their width"},
    {"textsUnturned", "text not turned", "texts not turned"},
    {"textsMoved", "text not aligned at its second point", "texts not aligned at their second point"},
    {"formattingCodes", "text with its formatting codes", "texts with their formatting codes"},
    {"piecesLost", "long text cut to its last piece", "long texts cut to their last piece"},
    {"dimensionsOfOtherNumber", "dimension with another number than the file states",
     "dimensions with another number than the file states"},
    {"onHiddenLayers", "entity of a layer that is off or frozen",
     "entities of layers that are off or frozen"},
    {"invisibleShown", "invisible entity", "invisible entities"},
    {"extrusionsLeftOut", "entity without its extrusion", "entities without their extrusion"},
    {"rowsAndColumnsOnce", "insert whose rows and columns are drawn once",
     "inserts whose rows and columns are drawn once"},
    {"basePointsLeftOut", "block without its base point", "blocks without their base point"},
    {"paperSpaceOverModel", "entity of the paper space over the model",
     "entities of the paper space over the model"},
    {"paperSpaceLeftOut", "entity of the paper space left out", "entities of the paper space left out"},
}};

} // namespace plexorn
