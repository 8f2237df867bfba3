#include "prepare/PrepareDrawing.h"

#include "prepare/drawing/Encoding.h"
#include "prepare/drawing/ReadDrawing.h"
#include "prepare/plain/Converter.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace prepare {

namespace {

// The longer side of the sheet that weights in millimetres are drawn on: an A3 sheet.
constexpr double kSheet = 420;
// No stroke is thinner than this share of the picture's longer side, so that it is visible on a screen.
constexpr double kThinnest = 1.0 / 1500;
// How far a flattened curve may be from the true one: a share of the thinnest stroke, and of the drawing.
constexpr double kToleranceInStrokes = 1.0 / 20, kToleranceInDrawing = 1.0 / 4000;
// What a drawing may unfold to. An entity that a program wrote has far more than eight bytes.
constexpr std::uint64_t kPlacedAnyhow = 100'000, kBytesForEachPlaced = 8;
// A POINT's mark where $PDSIZE does not give its size: a share of the drawing's height, as on a screen.
constexpr double kPointOfHeight = 0.05;

// Counts the entities that come by.
class CountingSink final : public EntitySink {
public:
    explicit CountingSink(EntitySink& next) : m_next(&next) {}
    void Take(const Entity& entity) override
    {
        ++count;
        m_next->Take(entity);
    }
    void StartAgain(EntitySink& next)
    {
        m_next = &next;
        count = 0;
    }
    std::uint64_t count = 0;

private:
    EntitySink* m_next;
};

std::uint64_t MostPlaced(std::uint64_t bytes)
{
    return kPlacedAnyhow + bytes / kBytesForEachPlaced;
}

// Half the size of a POINT's mark. $PDSIZE is a length when it is above 0, else percents of the view's
// height.
double PointSize(const Drawing& drawing, const Box& extents)
{
    const double size = drawing.header.Real("$PDSIZE", 0);
    if (size > 0)
        return size / 2;
    return (size < 0 ? -size / 100 : kPointOfHeight) * extents.Height() / 2;
}

bool IsDrawing(const Drawing& drawing, std::uint64_t entities)
{
    return entities > 0 || drawing.hasSections || !drawing.layers.empty() || !drawing.blocks.empty();
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

WriteSettings WriteSettingsFor(const Measured& measured, const Box& rayStarts, const Options& options)
{
    WriteSettings settings;
    settings.profile = options.profile;
    settings.mayWrap = options.mayWrap;
    settings.extents = measured.hull.IsEmpty() ? ExtentsOfRays(rayStarts) : measured.hull.Bounds();
    const double side = settings.extents.LongerSide() > 0 ? settings.extents.LongerSide() : 1;
    settings.unitsPerMm = side / kSheet;
    settings.thinnest = side * kThinnest;
    settings.thinnestWeight = measured.thinnestWeight == INT32_MAX ? 0 : measured.thinnestWeight;
    settings.smallestText = std::isfinite(measured.smallestText) ? measured.smallestText : 0;
    const double stroke = std::max(settings.thinnest, settings.thinnestWeight / 100.0 * settings.unitsPerMm);
    settings.tolerance = options.tolerance > 0
                             ? options.tolerance
                             : std::min(stroke * kToleranceInStrokes, side * kToleranceInDrawing);
    return settings;
}

} // namespace

PrepareOutcome PrepareDrawing(ReopenableSource& source, const Options& options, const ByteFunction& write,
                              Report& report, const ProgressFunction& progress)
{
    if (!options.encoding.empty() && !IsEncoding(options.encoding))
        return PrepareOutcome::BadOptions;
    Drawing drawing;
    bool hasFailed = false;
    Report unsaid; // of measuring, which finds the same as writing
    ConvertSettings coarse;
    coarse.tolerance = 1e100; // as coarse as curves may be
    coarse.mostPlaced = MostPlaced(source.Size());
    auto measure = std::make_unique<Measure>();
    auto measuring = std::make_unique<Converter>(drawing, options, coarse, *measure, unsaid);
    CountingSink counted(*measuring);
    const bool hasMetAll =
        ReadIndex(source.Rewound(), options.encoding, drawing, &counted, report, hasFailed);
    // Where inserts are cut off is known only after the entities.
    if (!hasFailed && (!hasMetAll || !drawing.filterOfInsert.empty())) {
        measure = std::make_unique<Measure>();
        measuring = std::make_unique<Converter>(drawing, options, coarse, *measure, unsaid);
        counted.StartAgain(*measuring);
        ReadEntities(source.Rewound(), options.encoding, drawing, counted, hasFailed,
                     hasMetAll ? nullptr : &report);
    }
    if (hasFailed)
        return PrepareOutcome::ReadFailed;
    if (!IsDrawing(drawing, counted.count))
        return PrepareOutcome::NoDrawing;
    if (progress && !progress(0.5))
        return PrepareOutcome::Cancelled;

    const WriteSettings settings = WriteSettingsFor(measure->OfModel(), measuring->RayStarts(), options);
    const std::unique_ptr<DrawingWriter> writer = MakeWriter(drawing, settings, report);
    ConvertSettings fine;
    fine.tolerance = settings.tolerance;
    fine.reach = settings.extents;
    fine.pointSize = PointSize(drawing, settings.extents);
    fine.mostPlaced = MostPlaced(drawing.bytes);
    Converter converter(drawing, options, fine, *writer, report);
    converter.KnowBlocks(measuring->Variants(), *measure);
    ReadEntities(source.Rewound(), options.encoding, drawing, converter, hasFailed);
    if (hasFailed)
        return PrepareOutcome::ReadFailed;
    converter.Finish();
    if (progress && !progress(0.9))
        return PrepareOutcome::Cancelled;
    return writer->Finish(write) ? PrepareOutcome::Done : PrepareOutcome::WriteFailed;
}

} // namespace prepare
