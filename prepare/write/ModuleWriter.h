// The profile for the module.
#pragma once

#include "prepare/write/KeptDrawing.h"
#include "prepare/write/ModuleEntities.h"

namespace prepare {

class ModuleWriter final : public KeptDrawing {
public:
    using KeptDrawing::KeptDrawing;

    bool Finish(const ByteFunction& write) override;

private:
    void WriteHeader(PairWriter& pairs) const;
};

} // namespace prepare
