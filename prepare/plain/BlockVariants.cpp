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
    : block(&of), inherits(inheritsStyle), view(static_cast<std::uint32_t>(inView))
{
    const Matrix& m = placement.baked;
    baked = {m.x.x, m.y.x, m.y.y, m.z.x, m.z.y};
    double largest = 0;
    for (const double value : baked)
        largest = std::max(largest, std::fabs(value));
    for (double& value : baked)
        value = Rounded(value, largest);
    if (!inherits)
        return;
    lineType = ofInsert.lineType;
    isTrueColour = ofInsert.colour.isTrue;
    colour = isTrueColour ? ofInsert.colour.rgb : static_cast<std::uint32_t>(ofInsert.colour.index);
    layer = ofInsert.layer;
    weight = static_cast<std::int16_t>(ofInsert.weight);
}

std::uint64_t BlockVariants::HashOf(const VariantKey& key) const
{
    std::array<std::uint64_t, 9> parts = {
        reinterpret_cast<std::uintptr_t>(key.block), reinterpret_cast<std::uintptr_t>(key.lineType),
        std::uint64_t{key.layer} << 32 | key.colour,
        std::uint64_t{key.view} << 32 | std::uint64_t{key.isTrueColour} << 16 |
            static_cast<std::uint16_t>(key.weight)};
    std::transform(key.baked.begin(), key.baked.end(), parts.end() - key.baked.size(),
                   [](double value) { return std::bit_cast<std::uint64_t>(value); });
    return HashBytes(parts.data(), sizeof(parts), m_hashKey);
}

std::uint32_t BlockVariants::Number(const VariantKey& key, std::uint64_t hash) const
{
    return m_index.Find(hash, [&](std::uint32_t number) { return m_made[number].key == key; });
}

const BlockVariant* BlockVariants::Find(const VariantKey& key) const
{
    const std::uint32_t number = Number(key, HashOf(key));
    return number == CDxfHashIndex::kNone ? nullptr : &m_made[number].variant;
}

std::pair<BlockVariant*, bool> BlockVariants::Add(const VariantKey& key)
{
    const std::uint64_t hash = HashOf(key);
    const std::uint32_t known = Number(key, hash);
    if (known != CDxfHashIndex::kNone)
        return {&m_made[known].variant, false};
    m_index.Reserve();
    m_made.push_back({key, {}});
    m_index.Add(hash, static_cast<std::uint32_t>(m_made.size() - 1));
    return {&m_made.back().variant, true};
}

} // namespace prepare
