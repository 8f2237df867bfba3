#include "prepare/ChooseStrokes.h"

#include "prepare/CurveTolerance.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace prepare {

namespace {

// The longer side of the sheet that weights in millimetres are drawn on: an A3 sheet.
constexpr double kSheet = 420;
// No stroke is thinner than this share of the picture's longer side, so that it is visible on a screen.
constexpr double kThinnest = 1.0 / 1500;
// On paper, no stroke is thinner than the thinnest pen, in millimetres.
constexpr double kThinnestPen = 0.13;

} // namespace

void ChooseStrokes(WriteSettings& settings, const Measured& measured, const Options& options)
{
    const double side = settings.extents.LongerSide() > 0 ? settings.extents.LongerSide() : 1;
    settings.unitsPerMm = settings.isInMillimetres ? 1 : side / kSheet;
    settings.thinnest =
        settings.isInMillimetres ? std::min(kThinnestPen, side * kThinnest) : side * kThinnest;
    settings.thinnestWeight = measured.thinnestWeight == INT32_MAX ? 0 : measured.thinnestWeight;
    settings.smallestText = std::isfinite(measured.smallestText) ? measured.smallestText : 0;
    const double stroke = std::max(settings.thinnest, settings.thinnestWeight / 100.0 * settings.unitsPerMm);
    settings.tolerance = options.tolerance > 0 ? options.tolerance : CurveTolerance(stroke, side);
}

} // namespace prepare
