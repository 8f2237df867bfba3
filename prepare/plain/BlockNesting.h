// Blocks within blocks.
#pragma once

#include "prepare/drawing/Drawing.h"
#include "prepare/report/Report.h"

#include <cstdint>
#include <vector>

namespace prepare {

// The blocks that are being drawn, each within the one before.
class BlockNesting {
public:
    // report must outlive this.
    explicit BlockNesting(Report& report) : m_report(report) {}

    // False, after a report, for a block that would be within itself or too deep. line is that of the insert.
    bool MayEnter(const Block& block, std::uint64_t line);
    void Enter(const Block& block) { m_open.push_back(&block); }
    void Leave() { m_open.pop_back(); }

private:
    Report& m_report;
    std::vector<const Block*> m_open;
};

} // namespace prepare
