#include "prepare/Settings.h"

#include "prepare/ChooseStrokes.h"

namespace prepare {

namespace {

// What a drawing may unfold to. An entity that a program wrote has far more than eight bytes.
constexpr std::uint64_t kPlacedAnyhow = 100'000, kBytesForEachPlaced = 8;
// How many points the curves of any drawing may take, and how many bytes it has for each one more. Curves of
// drawings that programs wrote take a tenth of that.
constexpr std::uint64_t kCurvePointsAnyhow = 100'000, kBytesForEachCurvePoint = 4;
// The same for the points of all that a drawing unfolds to.
constexpr std::uint64_t kPointsAnyhow = 300'000;

std::uint64_t SparePointsOfCurves(std::uint64_t bytes)
{
    return kCurvePointsAnyhow + bytes / kBytesForEachCurvePoint;
}

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

WriteSettings SettingsAsked(const Options& options, std::uint64_t bytes)
{
    WriteSettings settings;
    settings.sparePointsOfCurves = SparePointsOfCurves(bytes);
    settings.profile = options.profile;
    settings.fill = options.fill;
    settings.mayWrap = options.mayWrap;
    settings.isReadAtOnce = options.isReadAtOnce;
    settings.marksLayers = options.marksLayers;
    return settings;
}

} // namespace

ConvertSettings LimitsOf(std::uint64_t bytes)
{
    ConvertSettings settings;
    settings.mostPlaced = kPlacedAnyhow + bytes / kBytesForEachPlaced;
    settings.sparePointsOfCurves = SparePointsOfCurves(bytes);
    settings.mostPoints = kPointsAnyhow + bytes / 4 * 3;
    return settings;
}

ConvertSettings CoarseSettings(std::uint64_t bytes)
{
    ConvertSettings settings = LimitsOf(bytes);
    settings.tolerance = 1e100;
    return settings;
}

ConvertSettings FineSettings(std::uint64_t bytes, const WriteSettings& settings)
{
    ConvertSettings fine = LimitsOf(bytes);
    fine.tolerance = settings.tolerance;
    fine.reach = settings.extents;
    return fine;
}

WriteSettings WriteSettingsFor(const Measured& measured, const Box& rayStarts, std::uint64_t bytes,
                               const Options& options)
{
    WriteSettings settings = SettingsAsked(options, bytes);
    settings.extents = measured.hull.IsEmpty() ? ExtentsOfRays(rayStarts) : measured.hull.Bounds();
    ChooseStrokes(settings, measured, options);
    return settings;
}

WriteSettings WriteSettingsForSheet(const Measured& measured, const Box& paper, std::uint64_t bytes,
                                    const Options& options)
{
    WriteSettings settings = SettingsAsked(options, bytes);
    settings.extents = paper.IsEmpty() ? measured.hull.Bounds() : paper;
    settings.isInMillimetres = !paper.IsEmpty();
    ChooseStrokes(settings, measured, options);
    return settings;
}

} // namespace prepare
