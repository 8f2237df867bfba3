// Messages with long words of the drawing, kept short.
#pragma once

#include <string>
#include <string_view>

namespace plexorn {

// What is in place of words that are left out.
inline constexpr std::string_view kEllipsis = "…";

// A UTF-8 text, or its first 240 bytes and an ellipsis if it is longer: a hostile drawing has a long word in
// each of many thousand messages.
std::string Shortened(std::string_view text);

} // namespace plexorn
