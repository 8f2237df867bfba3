// How much of a drawing its picture shows.
#pragma once

#include "cli/contents/DrawingInfo.h"

#include <cstdint>
#include <map>
#include <string>

namespace plexorn {

// Counted by entity. One within a block counts once if anything inserts the block, however often; the parts
// of a POLYLINE count with it, the ATTDEFs of blocks and what is invisible by its own flag count nowhere.
struct Share {
    std::uint64_t entities = 0;
    std::uint64_t shown = 0;
    std::map<std::string, std::uint64_t> missing; // by type
    OtherwiseCounts otherwise{};
    std::map<std::string, std::uint64_t> changed; // of a prepared drawing: what is shown differently, and how

    // As a percentage; 100 for a drawing without entities.
    double Percent() const;
    // Whether all of it is shown as the drawing states it.
    bool IsWhole() const;
    // What was counted of another drawing, too.
    void Add(const Share& other);
};

Share ShareOf(const DrawingInfo& info);

} // namespace plexorn
