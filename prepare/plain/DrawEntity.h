// Entities as plain ones. What a function cannot draw of an entity it reports.
#pragma once

#include "prepare/plain/PartStyle.h"
#include "prepare/plain/Placement.h"

namespace prepare {

// Draws an entity of any type but DIMENSION, INSERT and VIEWPORT: false when its type cannot be drawn.
bool DrawEntity(const Entity& entity, const Placement& placement, const PartStyler& styleOf);

// Curves, lines, points and outlines: false when the type is not among them.
bool DrawGeometry(const Entity& entity, const Placement& placement, const PartStyler& styleOf);

// TEXT, ATTRIB, ATTDEF and MTEXT: false when the type is not among them. Inserts and blocks decide before
// whether an attribute is visible.
bool DrawTexts(const Entity& entity, const Placement& placement, const PartStyler& styleOf);

// The frame of a TOLERANCE, the text of a MULTILEADER, and an ACAD_TABLE that has no picture block: false
// when the type is not among them.
bool DrawNotes(const Entity& entity, const Placement& placement, const PartStyler& styleOf);

} // namespace prepare
