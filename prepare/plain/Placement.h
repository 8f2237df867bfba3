// What an entity needs to know to become plain ones.
#pragma once

#include "prepare/plain/Budget.h"
#include "prepare/plain/DrawingScale.h"
#include "prepare/plain/Matrix.h"
#include "prepare/plain/Plain.h"
#include "prepare/report/Report.h"

namespace prepare {

struct Placement {
    const Drawing& drawing;
    Matrix matrix; // from world coordinates (of the drawing or of the block) to the output's plane
    Style style;   // resolved; its lineTypeScale and weight are the output's
    const DrawingScale& scale; // of the output
    PlainSink& sink;
    Report& report;
    Budget& budget; // its curves are those of the scale
};

} // namespace prepare
