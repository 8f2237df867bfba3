// Draws single entities for tests.
#pragma once

#include "prepare/plain/DrawGeometry.h"
#include "support/RecordingSink.h"

#include <cstdint>
#include <string>
#include <vector>

namespace prepare {

using Lines = std::vector<std::string>;

// What an entity needs around it, and what comes of it. Colours of parts are resolved to
// themselves, and to 7 by layer and by block.
class Stage {
public:
    Drawing drawing;
    Matrix matrix;
    Style style;
    double tolerance = 0.01;
    Box reach;
    double pointSize = 1;
    std::uint64_t mostPoints = UINT64_MAX;
    RecordingSink sink;
    Report report;

    // What DrawGeometry draws; its type must be drawn there.
    Lines Draw(const Entity& entity);
    // "changed: drawn as its outline", one for each entry.
    Lines Findings() const;
};

} // namespace prepare
