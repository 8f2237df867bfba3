// The profile for any other program.
#pragma once

#include "prepare/write/KeptDrawing.h"
#include "prepare/write/StandardTables.h"

#include <vector>

namespace prepare {

class StandardWriter final : public KeptDrawing {
public:
    using KeptDrawing::KeptDrawing;

    bool Finish(const ByteFunction& write) override;

private:
    // In the order of their names.
    std::vector<StandardBlock> NamedBlocks(const std::vector<bool>& isUsed) const;
    void WriteHeader(PairWriter& pairs, const Box& extents, std::uint64_t handleSeed) const;
};

} // namespace prepare
