// Styles of the parts of an entity.
#pragma once

#include "prepare/drawing/Entities.h"
#include "prepare/plain/Plain.h"

#include <cstdint>
#include <functional>

namespace prepare {

// Styles of parts that differ from their entity's: an element of a multiline, a run of a text.
struct StyleOfPart {
    std::int32_t colour = kByLayer; // as 62 would be: by block is the whole entity's
    std::int32_t trueColour = kNoTrueColour;
    NameId lineType = kNoName;
    NameId layer = kNoName;
    std::int32_t weight = kWeightByBlock; // as 370 would be: by block is the whole entity's
};

// Resolves the style of a part; comes from the code that places the entity.
using PartStyler = std::function<Style(const StyleOfPart& part)>;

} // namespace prepare
