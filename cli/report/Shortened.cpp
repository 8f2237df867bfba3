#include "cli/report/Shortened.h"

#include "base/Utf8.h"

#include <cstddef>

namespace plexorn {

std::string Shortened(std::string_view text)
{
    constexpr std::size_t kMostBytes = 240;
    if (text.size() <= kMostBytes)
        return std::string(text);
    return std::string(StartOfUtf8(text, kMostBytes)).append(kEllipsis);
}

} // namespace plexorn
