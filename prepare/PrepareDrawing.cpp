#include "prepare/PrepareDrawing.h"

#include "prepare/PrepareSheet.h"
#include "prepare/Settings.h"
#include "prepare/drawing/Encoding.h"
#include "prepare/drawing/ReadDrawing.h"
#include "prepare/plain/Converter.h"
#include "prepare/report/WaitingFindings.h"

#include <memory>
#include <utility>

namespace prepare {

namespace {

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

bool IsDrawing(const Drawing& drawing, std::uint64_t entities)
{
    return entities > 0 || drawing.hasSections || !drawing.layers.empty() || !drawing.blocks.empty();
}

// drawing may have its header already, and nothing else.
PrepareOutcome PrepareModel(ReopenableSource& source, const Options& options, const ByteFunction& write,
                            Report& report, const ProgressFunction& progress, Drawing drawing = {})
{
    bool hasFailed = false;
    WaitingFindings found;
    Report unsaid; // of measuring, which finds the same as writing
    const ConvertSettings coarse = CoarseSettings(source.Size());
    auto measure = std::make_unique<Measure>();
    auto measuring = std::make_unique<Converter>(drawing, options, coarse, *measure, unsaid);
    CountingSink counted(*measuring);
    const bool hasMetAll =
        ReadIndex(source.Rewound(), options.encoding, drawing, &counted, found.Taken(), hasFailed);
    if (!hasFailed && MustReadAgain(drawing, options.encoding)) {
        Drawing known;
        known.header = std::move(drawing.header);
        return PrepareModel(source, options, write, report, progress, std::move(known));
    }
    found.GiveTo(report);
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

    const WriteSettings settings =
        WriteSettingsFor(measure->OfModel(), measuring->RayStarts(), drawing.bytes, options);
    const std::unique_ptr<DrawingWriter> writer = MakeWriter(drawing, settings, report);
    ConvertSettings fine = FineSettings(drawing.bytes, settings);
    fine.pointSize = PointSizeOf(drawing, settings.extents);
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

} // namespace

PrepareOutcome PrepareDrawing(ReopenableSource& source, const Options& options, const ByteFunction& write,
                              Report& report, const ProgressFunction& progress)
{
    if (!options.encoding.empty() && !IsEncoding(options.encoding))
        return PrepareOutcome::BadOptions;
    if (!options.layout.empty() && !IsModelName(options.layout))
        return PrepareSheet(source, options, write, report, progress);
    return PrepareModel(source, options, write, report, progress);
}

} // namespace prepare
