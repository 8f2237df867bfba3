// Blocks of the drawing, made once for each way in which they are used.
#pragma once

#include "base/Hash.h"
#include "prepare/plain/Matrix.h"
#include "prepare/plain/Plain.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <unordered_map>

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

// Two uses of a block share what is made when these are equal.
struct VariantKey {
    const Block* block = nullptr;
    std::array<double, 6> baked{}; // rounded
    std::size_t view = 0;          // views of other numbers show other things of a block
    bool inherits = false;         // whether what follows counts
    Style insert;

    auto Compared() const
    {
        return std::tuple(block, baked, view, inherits, insert.colour.isTrue, insert.colour.rgb,
                          insert.colour.index, insert.weight, insert.lineType, insert.layer);
    }

    VariantKey(const Block& of, const SplitPlacement& placement, bool inheritsStyle, const Style& ofInsert,
               std::size_t inView = 0);

    friend bool operator==(const VariantKey& a, const VariantKey& b) { return a.Compared() == b.Compared(); }
};

// A hash that nobody can choose keys for.
class VariantHash {
public:
    VariantHash() : m_key(HashKey(this)) {}
    std::size_t operator()(const VariantKey& key) const;

private:
    std::uint64_t m_key;
};

struct BlockVariant {
    std::size_t number = 0; // of the output
    Point2 origin;          // the point of the baked content that is the made block's origin
};

using BlockVariants = std::unordered_map<VariantKey, BlockVariant, VariantHash>;

} // namespace prepare
