#include "cli/draw/PictureLimits.h"

#include "cli/files/SizeOfFile.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace plexorn {

namespace {

// base and more together, as far as a size can hold them.
std::size_t LimitFor(std::uintmax_t base, std::uintmax_t more)
{
    return static_cast<std::size_t>(
        std::min<std::uintmax_t>(base + more, std::numeric_limits<std::size_t>::max()));
}

} // namespace

std::size_t MostElements(const std::filesystem::path& drawing)
{
    constexpr std::uintmax_t kAnyhow = 100'000, kBytesForEach = 8;
    return LimitFor(kAnyhow, SizeOfFile(drawing) / kBytesForEach);
}

std::size_t MostBytes(const std::filesystem::path& drawing)
{
    constexpr std::uintmax_t kAnyhow = 17'000'000, kForEachByte = 12;
    return LimitFor(kAnyhow, SizeOfFile(drawing) * kForEachByte);
}

} // namespace plexorn
