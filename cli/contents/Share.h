// How much of a drawing its picture shows.
#pragma once

#include "cli/contents/DrawingInfo.h"

#include <array>
#include <cstdint>
#include <map>
#include <string>

namespace plexorn {

// What is not to be seen, as the drawing or the user wants it: entities on layers, and windows of a sheet.
enum class Hidden : std::uint8_t { OffOrFrozen, NotChosen, NotPlotted, InViewportsOff };
using HiddenCounts = std::array<std::uint64_t, 4>;

// Counted by entity. One within a block counts once if anything inserts the block, however often; the parts
// of a POLYLINE count with it, the ATTDEFs of blocks and what is invisible by its own flag count nowhere.
struct Share {
    std::uint64_t entities = 0;
    std::uint64_t shown = 0;
    std::map<std::string, std::uint64_t> missing; // by type
    DifferenceCounts otherwise{};
    // Of a prepared drawing: what is shown differently, and how; and what else is not to be seen.
    std::map<std::string, std::uint64_t> changed;
    bool isCut = false; // some of changed is not shown whole
    HiddenCounts hidden{};

    // As a percentage; 100 for a drawing without entities.
    double Percent() const;
    // Whether all of it is shown as the drawing states it.
    bool IsWhole() const;
    // Has all that is not shown among what is missing, with or without its type.
    void NameRest();
    // What was counted of another drawing, too.
    void Add(const Share& other);
};

Share ShareOf(const DrawingInfo& info);

} // namespace plexorn
