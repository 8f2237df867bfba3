// How the command knows what it has written.
#pragma once

#include <string_view>

namespace plexorn {

// The value of the attribute data-generator that marks a picture.
inline constexpr const char* kGenerator = "plexorn";

// What a prepared drawing begins with: a comment, which marks it.
inline constexpr std::string_view kDrawingMark = "999\nplexorn\n";

} // namespace plexorn
