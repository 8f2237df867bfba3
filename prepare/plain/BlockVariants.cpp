#include "prepare/plain/BlockVariants.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace prepare {

namespace {

// Keeps 32 bits of a number: placements that should be the same differ only in the last few. A number that is
// negligible compared with the largest one is 0.
double Rounded(double value, double largest)
{
    if (std::fabs(value) <= largest * 1e-12)
        return 0;
    int exponent = 0;
    const double mantissa = std::frexp(value, &exponent);
    return std::ldexp(std::round(std::ldexp(mantissa, 32)), exponent - 32);
}

} // namespace

SplitPlacement Split(const Matrix& placement)
{
    SplitPlacement split;
    split.point = {placement.origin.x, placement.origin.y};
    const bool hasX = placement.x.x != 0 || placement.x.y != 0;
    split.rotation =
        hasX ? std::atan2(placement.x.y, placement.x.x) : std::atan2(-placement.y.x, placement.y.y);
    Matrix baked = Turned(-split.rotation) * placement;
    baked.origin = {};
    if (hasX)
        baked.x.y = 0;
    split.isMirrored = baked.y.y < 0;
    if (split.isMirrored)
        baked = Scaled({1, -1, 1}) * baked;
    split.baked = baked;
    return split;
}

VariantKey::VariantKey(const Block& of, const SplitPlacement& placement, bool inheritsStyle,
                       const Style& ofInsert, std::size_t inView)
    : block(&of), view(inView), inherits(inheritsStyle)
{
    const Matrix& m = placement.baked;
    baked = {m.x.x, m.x.y, m.y.x, m.y.y, m.z.x, m.z.y};
    double largest = 0;
    for (const double value : baked)
        largest = std::max(largest, std::fabs(value));
    for (double& value : baked)
        value = Rounded(value, largest);
    if (inherits)
        insert = ofInsert;
}

std::size_t VariantHash::operator()(const VariantKey& key) const
{
    std::array<std::uint64_t, 10> parts = {
        reinterpret_cast<std::uintptr_t>(key.block), key.view,
        std::uint64_t{key.insert.colour.rgb} << 32 | static_cast<std::uint32_t>(key.insert.colour.index),
        std::uint64_t{key.insert.layer} << 32 | static_cast<std::uint32_t>(key.insert.weight)};
    std::transform(key.baked.begin(), key.baked.end(), parts.end() - key.baked.size(),
                   [](double value) { return std::bit_cast<std::uint64_t>(value); });
    return static_cast<std::size_t>(HashBytes(parts.data(), sizeof(parts), m_key));
}

} // namespace prepare
