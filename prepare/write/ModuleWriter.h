// The profile for the module.
#pragma once

#include "prepare/write/KeptDrawing.h"
#include "prepare/write/ModuleEntities.h"
#include "prepare/write/Wrap.h"

#include <cstddef>
#include <vector>

namespace prepare {

class ModuleWriter final : public KeptDrawing {
public:
    using KeptDrawing::KeptDrawing;

    bool Finish(const ByteFunction& write) override;

private:
    void WriteHeader(PairWriter& pairs) const;
    std::vector<ModuleBlock> NameBlocks(const std::vector<std::size_t>& used) const;
    void WriteFills(const ModuleOutput& output, const std::vector<std::size_t>& used, const Wrap& wrap) const;
    void WriteBlocks(const ModuleOutput& output, const std::vector<std::size_t>& used) const;
    void WriteModel(const ModuleOutput& output, const Wrap& wrap) const;
    void WriteWraps(const ModuleOutput& output, const Wrap& wrap) const;
    void WriteEntities(const ModuleOutput& output, const Wrap& wrap) const;
};

} // namespace prepare
