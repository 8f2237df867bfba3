// Names of symbols by which a prepared drawing says what the operations cannot.
#pragma once

#include <string_view>

namespace svghost {

// What begins the name of a symbol that is an area: the polygons in it are its edges. The preparing library
// has the same name.
inline constexpr std::wstring_view kFillPrefix = L"PLEXORN_FILL_";

// The same of an area that hides what was drawn before it.
inline constexpr std::wstring_view kMaskPrefix = L"PLEXORN_FILL_MASK_";

} // namespace svghost
