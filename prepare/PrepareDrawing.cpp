#include "prepare/PrepareDrawing.h"

#include "prepare/Layouts.h"
#include "prepare/PrepareSheet.h"
#include "prepare/Settings.h"
#include "prepare/drawing/CountContents.h"
#include "prepare/drawing/Encoding.h"
#include "prepare/drawing/ReadDrawing.h"
#include "prepare/plain/Converter.h"
#include "prepare/plain/TwoOutputs.h"
#include "prepare/report/WaitingFindings.h"

#include <memory>
#include <utility>

namespace prepare {

namespace {

// The first conversion of a drawing: measures it, and keeps what it becomes as long as nothing of that
// depends on how large the drawing is.
class FirstConversion final : public EntitySink {
public:
    // All must outlive this.
    FirstConversion(const Drawing& drawing, const Options& options, const ConvertSettings& settings,
                    std::unique_ptr<DrawingWriter> writer)
        : m_writer(std::move(writer)), m_outputs(m_measure, *m_writer),
          m_converter(drawing, options, settings, m_outputs, m_findings.Taken())
    {
    }

    void Take(const Entity& entity) override
    {
        CountEntity(entity, m_contents);
        m_converter.Take(entity);
        if (m_writer != nullptr && !m_converter.HasNeededNothing())
            LeaveWriter();
    }

    // What it became is not final.
    void LeaveWriter()
    {
        m_outputs.LeaveSecond();
        m_writer.reset();
        m_findings.Leave();
    }

    // The writer that has the whole drawing; null when that must be converted again.
    std::unique_ptr<DrawingWriter> TakeWriter()
    {
        if (m_writer != nullptr && m_converter.AreBlocksFinal(m_measure))
            m_converter.Finish();
        else
            LeaveWriter();
        return std::move(m_writer);
    }

    // What came.
    const Contents& Held() const { return m_contents; }
    const Measure& Measured() const { return m_measure; }
    const Converter& Converted() const { return m_converter; }
    // Of what the writer has.
    const WaitingFindings& Findings() const { return m_findings; }

private:
    Contents m_contents;
    WaitingFindings m_findings;
    Measure m_measure;
    std::unique_ptr<DrawingWriter> m_writer;
    TwoOutputs m_outputs;
    Converter m_converter;
};

// Passes entities on to whichever first conversion there is.
class ToFirst final : public EntitySink {
public:
    explicit ToFirst(const std::unique_ptr<FirstConversion>& first) : m_first(first) {}
    void Take(const Entity& entity) override { m_first->Take(entity); }

private:
    const std::unique_ptr<FirstConversion>& m_first;
};

bool IsDrawing(const Drawing& drawing, std::uint64_t entities)
{
    return entities > 0 || drawing.hasSections || !drawing.layers.empty() || !drawing.blocks.empty();
}

// Prepares a drawing's model space.
class Preparing {
public:
    // known: what the header is known to be; it may be empty.
    Preparing(ReopenableSource& source, const Options& options, const ByteFunction& write, Report& report,
              const ProgressFunction& progress, Header known = {})
        : m_source(source), m_options(options), m_write(write), m_report(report), m_progress(progress)
    {
        m_drawing.header = std::move(known);
    }

    PrepareOutcome Run();

private:
    bool MayGoOn(double share) const { return !m_progress || m_progress(share); }
    void StartFirst();
    bool ReadFirst();
    bool ConvertAgain();
    void TellContents();
    PrepareOutcome Finish();

    ReopenableSource& m_source;
    const Options& m_options;
    const ByteFunction& m_write;
    Report& m_report;
    const ProgressFunction& m_progress;
    Drawing m_drawing;
    WriteSettings m_settings;
    std::unique_ptr<FirstConversion> m_first;
    std::unique_ptr<DrawingWriter> m_writer; // with all of the drawing, once it has been converted
    bool m_mustReadAgain = false;
};

void Preparing::StartFirst()
{
    m_settings.profile = m_options.profile;
    m_settings.fill = m_options.fill;
    m_first.reset();
    m_first = std::make_unique<FirstConversion>(m_drawing, m_options, CoarseSettings(m_source.Size()),
                                                MakeWriter(m_drawing, m_settings, m_report));
}

// Reads everything and converts it for the first time; false when reading failed.
bool Preparing::ReadFirst()
{
    bool hasFailed = false;
    StartFirst();
    ToFirst sink(m_first);
    WaitingFindings found;
    const bool hasMetAll =
        ReadIndex(m_source.Rewound(), m_options.encoding, m_drawing, &sink, found.Taken(), hasFailed);
    hasFailed = hasFailed && !m_source.IsTakenInPart();
    if (hasMetAll)
        GuessCodePage(m_drawing);
    m_mustReadAgain = !hasFailed && MustReadAgain(m_drawing, m_options.encoding);
    if (m_mustReadAgain)
        return true;
    if (hasFailed) {
        found.GiveTo(m_report);
        return false;
    }
    // Where inserts are cut off is known only after the entities.
    if (!hasMetAll || !m_drawing.filterOfInsert.empty()) {
        StartFirst();
        ReadEntities(m_source.Rewound(), m_options.encoding, m_drawing, sink, hasFailed,
                     hasMetAll ? nullptr : &found.Taken());
        hasFailed = hasFailed && !m_source.IsTakenInPart();
        if (!hasMetAll)
            GuessCodePage(m_drawing);
        m_mustReadAgain = !hasFailed && MustReadAgain(m_drawing, m_options.encoding);
        if (m_mustReadAgain)
            return true;
    } else if (m_drawing.hasLateParts || !m_drawing.placeInOrder.empty()) {
        m_first->LeaveWriter();
    }
    found.GiveTo(m_report);
    return !hasFailed;
}

// Converts everything once more, now that it is known how large the drawing is; false when reading failed.
bool Preparing::ConvertAgain()
{
    bool hasFailed = false;
    m_writer = MakeWriter(m_drawing, m_settings, m_report);
    ConvertSettings fine = FineSettings(m_drawing.bytes, m_settings);
    fine.pointSize = PointSizeOf(m_drawing, m_settings.extents);
    Converter converter(m_drawing, m_options, fine, *m_writer, m_report);
    converter.KnowBlocks(m_first->Converted().Variants(), m_first->Measured());
    ReadEntities(m_source.Rewound(), m_options.encoding, m_drawing, converter, hasFailed);
    hasFailed = hasFailed && !m_source.IsTakenInPart();
    if (!hasFailed)
        converter.Finish();
    return !hasFailed;
}

void Preparing::TellContents()
{
    m_report.contents = m_first->Held();
    CountRest(m_drawing, m_report.contents);
    m_report.isBlank =
        m_first->Measured().OfModel().hull.IsEmpty() && m_first->Converted().RayStarts().IsEmpty();
    m_report.layouts = SizesOfLayouts(m_drawing, m_report.contents.inPaperSpace > 0);
}

PrepareOutcome Preparing::Run()
{
    if (!ReadFirst())
        return PrepareOutcome::ReadFailed;
    if (m_mustReadAgain) {
        NoteGuess(m_drawing, m_report);
        m_first.reset();
        return Preparing(m_source, m_options, m_write, m_report, m_progress, std::move(m_drawing.header))
            .Run();
    }
    TellContents();
    if (!m_options.takesNothing && !IsDrawing(m_drawing, m_first->Held().entities))
        return PrepareOutcome::NoDrawing;
    return MayGoOn(0.5) ? Finish() : PrepareOutcome::Cancelled;
}

PrepareOutcome Preparing::Finish()
{
    m_settings = WriteSettingsFor(m_first->Measured().OfModel(), m_first->Converted().RayStarts(),
                                  m_drawing.bytes, m_options);
    m_writer = m_first->TakeWriter();
    if (m_writer != nullptr)
        m_first->Findings().GiveTo(m_report);
    else if (!ConvertAgain())
        return PrepareOutcome::ReadFailed;
    m_first.reset(); // writing needs memory, too
    if (!MayGoOn(0.9))
        return PrepareOutcome::Cancelled;
    m_writer->UseSettings(m_settings);
    return m_writer->Finish(m_write) ? PrepareOutcome::Done : PrepareOutcome::WriteFailed;
}

} // namespace

PrepareOutcome PrepareDrawing(ReopenableSource& source, const Options& options, const ByteFunction& write,
                              Report& report, const ProgressFunction& progress)
{
    if (!options.encoding.empty() && !IsEncoding(options.encoding))
        return PrepareOutcome::BadOptions;
    if (!options.layout.empty() && !IsModelName(options.layout))
        return PrepareSheet(source, options, write, report, progress);
    return Preparing(source, options, write, report, progress).Run();
}

} // namespace prepare
