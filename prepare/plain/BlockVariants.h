// Blocks of the drawing, made once for each way in which they are used.
#pragma once

#include "base/CDxfHashIndex.h"
#include "base/Hash.h"
#include "prepare/plain/Matrix.h"
#include "prepare/plain/Plain.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <utility>

namespace prepare {

// How a block is placed. What a use cannot express is baked into its content, so a use only mirrors, turns
// and moves. Line widths, dashes and texts then keep what the drawing gives them.
struct SplitPlacement {
    Matrix baked; // maps the block's coordinates to those of the made block; z is dropped
    Point2 point;
    double rotation = 0; // radians
    bool isMirrored = false;
};

// Splits a placement. Where the x axis of the block is seen from its end, its y axis is turned upright.
SplitPlacement Split(const Matrix& placement);

// Two uses of a block share what is made when these are equal. A drawing may have as many as inserts, so it
// is kept small.
struct VariantKey {
    const Block* block = nullptr;
    std::array<double, 5> baked{}; // rounded; x.y of what is baked is always 0
    // Of the insert's style what its block inherits, if anything of it does.
    const LineType* lineType = nullptr;
    std::uint32_t colour = 0;
    NameId layer = kNoName;
    std::int16_t weight = 0;
    bool isTrueColour = false;
    bool inherits = false;
    std::uint32_t view = 0; // views of other numbers show other things of a block

    VariantKey(const Block& of, const SplitPlacement& placement, bool inheritsStyle, const Style& ofInsert,
               std::size_t inView = 0);

    friend bool operator==(const VariantKey& a, const VariantKey& b) = default;
};

struct BlockVariant {
    std::uint32_t number = 0; // of the output
    Point2 origin;            // the point of the baked content that is the made block's origin
};

// What was made of blocks, found by a hash that nobody can choose keys for.
class BlockVariants {
public:
    BlockVariants() : m_hashKey(HashKey(this)) {}

    // Null when there is none.
    const BlockVariant* Find(const VariantKey& key) const;
    // The variant of that key, which stays where it is, and whether it is new. Throws std::bad_alloc.
    std::pair<BlockVariant*, bool> Add(const VariantKey& key);

    template <class Is>
    bool AreAll(const Is& is) const
    {
        return std::all_of(m_made.begin(), m_made.end(), [&](const Made& made) { return is(made.variant); });
    }

    // All of the key is in it: variants that differ in any way are found in as few steps.
    std::uint64_t HashOf(const VariantKey& key) const;

private:
    struct Made {
        VariantKey key;
        BlockVariant variant;
    };

    std::uint32_t Number(const VariantKey& key, std::uint64_t hash) const;

    std::deque<Made> m_made;
    CDxfHashIndex m_index; // into m_made
    std::uint64_t m_hashKey;
};

} // namespace prepare
