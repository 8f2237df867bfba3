#include "prepare/Settings.h"

#include <algorithm>
#include <cmath>

namespace prepare {

namespace {

// The longer side of the sheet that weights in millimetres are drawn on: an A3 sheet.
constexpr double kSheet = 420;
// No stroke is thinner than this share of the picture's longer side, so that it is visible on a screen.
constexpr double kThinnest = 1.0 / 1500;
// On paper, no stroke is thinner than the thinnest pen, in millimetres.
constexpr double kThinnestPen = 0.13;
// How far a flattened curve may be from the true one: a share of the thinnest stroke, and of the drawing.
constexpr double kToleranceInStrokes = 1.0 / 20, kToleranceInDrawing = 1.0 / 4000;
// What a drawing may unfold to. An entity that a program wrote has far more than eight bytes.
constexpr std::uint64_t kPlacedAnyhow = 100'000, kBytesForEachPlaced = 8;

// Of a drawing of nothing but rays: around their starts.
Box ExtentsOfRays(const Box& starts)
{
    const double margin = starts.LongerSide() > 0 ? starts.LongerSide() / 2 : 1;
    Box extents;
    if (!starts.IsEmpty()) {
        extents.Add(starts.min - Point2{margin, margin});
        extents.Add(starts.max + Point2{margin, margin});
    }
    return extents;
}

// Strokes are as wide as on a sheet that the drawing fills, or as on its own.
void ChooseStrokes(WriteSettings& settings, const Measured& measured, const Options& options)
{
    const double side = settings.extents.LongerSide() > 0 ? settings.extents.LongerSide() : 1;
    settings.unitsPerMm = settings.isInMillimetres ? 1 : side / kSheet;
    settings.thinnest =
        settings.isInMillimetres ? std::min(kThinnestPen, side * kThinnest) : side * kThinnest;
    settings.thinnestWeight = measured.thinnestWeight == INT32_MAX ? 0 : measured.thinnestWeight;
    settings.smallestText = std::isfinite(measured.smallestText) ? measured.smallestText : 0;
    const double stroke = std::max(settings.thinnest, settings.thinnestWeight / 100.0 * settings.unitsPerMm);
    settings.tolerance = options.tolerance > 0
                             ? options.tolerance
                             : std::min(stroke * kToleranceInStrokes, side * kToleranceInDrawing);
}

WriteSettings SettingsAsked(const Options& options)
{
    WriteSettings settings;
    settings.profile = options.profile;
    settings.mayWrap = options.mayWrap;
    settings.marksLayers = options.marksLayers;
    return settings;
}

} // namespace

std::uint64_t MostPlaced(std::uint64_t bytes)
{
    return kPlacedAnyhow + bytes / kBytesForEachPlaced;
}

ConvertSettings CoarseSettings(std::uint64_t mostPlaced)
{
    ConvertSettings settings;
    settings.tolerance = 1e100;
    settings.mostPlaced = mostPlaced;
    return settings;
}

WriteSettings WriteSettingsFor(const Measured& measured, const Box& rayStarts, const Options& options)
{
    WriteSettings settings = SettingsAsked(options);
    settings.extents = measured.hull.IsEmpty() ? ExtentsOfRays(rayStarts) : measured.hull.Bounds();
    ChooseStrokes(settings, measured, options);
    return settings;
}

WriteSettings WriteSettingsForSheet(const Measured& measured, const Box& paper, const Options& options)
{
    WriteSettings settings = SettingsAsked(options);
    settings.extents = paper.IsEmpty() ? measured.hull.Bounds() : paper;
    settings.isInMillimetres = !paper.IsEmpty();
    ChooseStrokes(settings, measured, options);
    return settings;
}

} // namespace prepare
