// How wide the strokes of a prepared drawing are.
#pragma once

#include "prepare/Options.h"
#include "prepare/plain/Measure.h"
#include "prepare/write/DrawingWriter.h"

namespace prepare {

// Sets what the widths of strokes follow from, and how far a curve may be from its lines, which follows from
// the thinnest stroke. Strokes are as wide as on a sheet that the drawing fills, or as on its own. The
// extents in settings are set.
void ChooseStrokes(WriteSettings& settings, const Measured& measured, const Options& options);

} // namespace prepare
