// Entities as plain ones. Each function draws one type; what it cannot draw it reports.
#pragma once

#include "prepare/drawing/Entities.h"
#include "prepare/plain/Placement.h"

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

// Curves, lines, points and outlines: false when the type is not among them.
bool DrawGeometry(const Entity& entity, const Placement& placement, const PartStyler& styleOf);

// TEXT, ATTRIB, ATTDEF and MTEXT: false when the type is not among them. Inserts and blocks decide before
// whether an attribute is visible.
bool DrawTexts(const Entity& entity, const Placement& placement, const PartStyler& styleOf);

// The frame of a TOLERANCE, the text of a MULTILEADER, and an ACAD_TABLE that has no picture block: false
// when the type is not among them.
bool DrawNotes(const Entity& entity, const Placement& placement, const PartStyler& styleOf);

} // namespace prepare
