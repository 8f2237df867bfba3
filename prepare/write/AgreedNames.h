// Names of blocks that say to a host what the module cannot.
#pragma once

#include <string_view>

namespace prepare {

// What begins the name of a block that is an area: in it are nothing but closed polylines, the area's edges,
// all in its colour. The reference host has the same name.
inline constexpr std::string_view kFillPrefix = "PLEXORN_FILL_";

// The same of an area that hides what was drawn before it: in the background's colour.
inline constexpr std::string_view kMaskPrefix = "PLEXORN_FILL_MASK_";

} // namespace prepare
