// How far the lines of a flattened curve may be from it.
#pragma once

namespace prepare {

// The distance where the options name none: what nobody sees beside the thinnest stroke, of that width, of a
// drawing with that longer side.
double CurveTolerance(double thinnestStroke, double side);

} // namespace prepare
