// Names of blocks that say to a host what the module cannot. The reference host has the same names.
#pragma once

#include <string_view>

namespace prepare {

// What begins the name of a block that is an area: in it are nothing but closed polylines, the area's edges,
// all in its colour.
inline constexpr std::string_view kFillPrefix = "PLEXORN_FILL_";

// The same of an area that hides what was drawn before it: in the background's colour.
inline constexpr std::string_view kMaskPrefix = "PLEXORN_FILL_MASK_";

// What begins the name of a block that is a line of writing: in it are texts that follow each other along
// one line, from, around or to the block's origin, as they are aligned; each is at its own place, too. Or one
// insert of such a block is in it.
inline constexpr std::string_view kTextPrefix = "PLEXORN_TEXT_";

// The same of a line that starts left of the block's origin, so that its middle or its end is there if it is
// as wide as the author's. A host can see to that.
inline constexpr std::string_view kMiddleTextPrefix = "PLEXORN_TEXT_MIDDLE_";
inline constexpr std::string_view kEndTextPrefix = "PLEXORN_TEXT_END_";

// The same of a line of which each blank between two texts is wider than usual, by as many thousandths of the
// first text's font size as the number says that follows, up to an underscore. Its texts are not anchored:
// each begins at its own place, the first one left of the block's origin, and the line ends there.
inline constexpr std::string_view kSpreadTextPrefix = "PLEXORN_TEXT_SPREAD_";

// What begins the name of a block that is a part of the drawing. Where it is inserted once, a host may draw
// its contents there.
inline constexpr std::string_view kPartPrefix = "PLEXORN_PART_";

// What begins the name of a part that is all of the drawing.
inline constexpr std::string_view kWrapPrefix = "PLEXORN_PART_W";

// What begins the name of a block that is empty: what is inserted after it in the same block, or in the
// drawing, is on the layer that the rest of the name is. Where that is empty, it is on none, or on several.
inline constexpr std::string_view kLayerPrefix = "PLEXORN_LAYER_";

} // namespace prepare
