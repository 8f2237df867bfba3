// Names of symbols by which a prepared drawing says what the operations cannot express. The preparing library
// has the same names.
#pragma once

#include <string_view>

namespace svghost {

// What begins the name of a symbol that is an area: the polygons in it are its edges.
inline constexpr std::wstring_view kFillPrefix = L"PLEXORN_FILL_";

// The same of an area that hides what was drawn before it.
inline constexpr std::wstring_view kMaskPrefix = L"PLEXORN_FILL_MASK_";

// What begins the name of a symbol that is a line of writing: the texts in it follow each other, from, around
// or to the symbol's origin, as the anchor of the first one says. Or one use of such a symbol is in it.
inline constexpr std::wstring_view kTextPrefix = L"PLEXORN_TEXT_";

// The same of texts without an anchor, which begin at their own places: the line is as wide as puts its
// middle or its end at the symbol's origin.
inline constexpr std::wstring_view kMiddleTextPrefix = L"PLEXORN_TEXT_MIDDLE_";
inline constexpr std::wstring_view kEndTextPrefix = L"PLEXORN_TEXT_END_";

// The same of a line of which each blank between two texts is wider than usual, by as many thousandths of the
// first text's font size as the number says that follows, up to an underscore. Its texts are not anchored:
// each begins at its own place, the first one left of the symbol's origin, and the line ends there.
inline constexpr std::wstring_view kSpreadTextPrefix = L"PLEXORN_TEXT_SPREAD_";

// What begins the name of a symbol that is a part of the drawing: where it is used once, its contents may be
// in the place of its use.
inline constexpr std::wstring_view kPartPrefix = L"PLEXORN_PART_";

// What begins the name of a part that is all of the drawing.
inline constexpr std::wstring_view kWrapPrefix = L"PLEXORN_PART_W";

// What begins the name of a symbol that is empty: what comes after its use, in the same symbol or drawing, is
// on the layer that the rest of the name is. Where that is empty, it is on none, or on several.
inline constexpr std::wstring_view kLayerPrefix = L"PLEXORN_LAYER_";

} // namespace svghost
