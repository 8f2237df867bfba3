#include "prepare/PrepareSheet.h"

#include "prepare/Layouts.h"
#include "prepare/Settings.h"
#include "prepare/drawing/CountContents.h"
#include "prepare/drawing/ReadDrawing.h"
#include "prepare/plain/SheetConverter.h"

#include <algorithm>
#include <memory>

namespace prepare {

namespace {

// Prepares one sheet, in passes over the drawing.
class SheetPasses {
public:
    SheetPasses(ReopenableSource& source, const Options& options, Drawing& drawing, const Layout& layout,
                Report& report)
        : m_source(source), m_options(options), m_drawing(drawing), m_layout(layout), m_report(report),
          m_sheet(SheetOf(layout)),
          m_measuring(drawing, options, CoarseSettings(drawing.bytes), m_measure, m_unsaid)
    {
    }

    // Each is false when the drawing could not be read to its end; then nothing more is to be called.
    bool ReadWindows();
    bool MeasureAll();
    std::unique_ptr<DrawingWriter> WriteAll();

    LayoutSize Size() const { return {m_layout.name, m_sheet.width, m_sheet.height}; }

private:
    bool Read(EntitySink& sink, Report* report = nullptr);
    void TellContents(const Contents& held);
    Measured AllMeasured(const SheetConverter& converter);

    ReopenableSource& m_source;
    const Options& m_options;
    Drawing& m_drawing;
    const Layout& m_layout;
    Report& m_report;
    Sheet m_sheet;
    std::vector<Window> m_windows;
    Report m_unsaid; // findings of measuring; dropped, as writing finds them again
    Measure m_measure;
    Converter m_measuring;
    WriteSettings m_settings;
};

bool SheetPasses::Read(EntitySink& sink, Report* report)
{
    bool hasFailed = false;
    ReadEntities(m_source.Rewound(), m_options.encoding, m_drawing, sink, hasFailed, report);
    return !hasFailed || m_source.IsTakenInPart();
}

bool SheetPasses::ReadWindows()
{
    WindowReader reader(m_drawing, m_layout, m_sheet, m_report);
    EntityCounter counting(&reader);
    if (!Read(counting, &m_report))
        return false;
    TellContents(counting.contents);
    m_windows = std::move(reader.Windows());
    OutlineReader outlines(m_drawing, m_sheet, LimitsOf(m_drawing.bytes), m_windows);
    if (outlines.IsNeeded() && !Read(outlines))
        return false;
    outlines.Finish(m_report);
    return true;
}

void SheetPasses::TellContents(const Contents& held)
{
    m_report.contents = held;
    CountRest(m_drawing, m_report.contents);
}

// The model's measure is of the sheet's own entities: what windows show counts where it is not cut off.
Measured SheetPasses::AllMeasured(const SheetConverter& converter)
{
    Measured all = m_measure.OfModel();
    for (const Window& window : m_windows)
        for (const Point2 corner : window.outline)
            all.hull.Add(corner);
    for (const std::size_t block : converter.Blocks()) {
        m_measure.EndBlock(block);
        const MeasuredBlock& shown = m_measure.OfBlock(block);
        all.thinnestWeight = std::min(all.thinnestWeight, shown.thinnestWeight);
        all.smallestText = std::min(all.smallestText, shown.smallestText);
    }
    return all;
}

// If nothing of the layout is on the paper, the paper size is not used.
bool SheetPasses::MeasureAll()
{
    SheetSettings settings;
    settings.placing = CoarseSettings(m_drawing.bytes);
    SheetConverter converter(m_drawing, m_options, m_layout, m_sheet, m_windows, settings, m_measuring,
                             m_measure, m_unsaid);
    if (!Read(converter))
        return false;
    const Measured all = AllMeasured(converter);
    m_report.isBlank = all.hull.IsEmpty() && m_measuring.RayStarts().IsEmpty();
    const Box extents = all.hull.Bounds();
    if (!extents.IsEmpty() && extents.IsApartFrom(m_sheet.Paper()))
        m_sheet.width = m_sheet.height = 0;
    m_settings = WriteSettingsForSheet(all, m_sheet.Paper(), m_drawing.bytes, m_options);
    return true;
}

std::unique_ptr<DrawingWriter> SheetPasses::WriteAll()
{
    std::unique_ptr<DrawingWriter> writer = MakeWriter(m_drawing, m_settings, m_report);
    Converter converter(m_drawing, m_options, FineSettings(m_drawing.bytes, m_settings), *writer, m_report);
    converter.KnowBlocks(m_measuring.Variants(), m_measure);
    const SheetSettings settings{m_settings.extents, CoarseSettings(m_drawing.bytes)};
    SheetConverter sheet(m_drawing, m_options, m_layout, m_sheet, m_windows, settings, converter, *writer,
                         m_report);
    if (!Read(sheet))
        return nullptr;
    converter.Finish();
    return writer;
}

} // namespace

PrepareOutcome PrepareSheet(ReopenableSource& source, const Options& options, const ByteFunction& write,
                            Report& report, const ProgressFunction& progress)
{
    Drawing drawing;
    if (!ReadLayouts(source, options.encoding, drawing, report))
        return PrepareOutcome::ReadFailed;
    report.layouts = SizesOfLayouts(drawing, false);
    const Layout* const layout = FindLayout(drawing, options.layout);
    if (layout == nullptr)
        return PrepareOutcome::NoLayout;
    SheetPasses passes(source, options, drawing, *layout, report);
    if (!passes.ReadWindows() || !passes.MeasureAll())
        return PrepareOutcome::ReadFailed;
    report.sheet = passes.Size();
    if (progress && !progress(0.5))
        return PrepareOutcome::Cancelled;
    const std::unique_ptr<DrawingWriter> writer = passes.WriteAll();
    if (writer == nullptr)
        return PrepareOutcome::ReadFailed;
    if (progress && !progress(0.9))
        return PrepareOutcome::Cancelled;
    return writer->Finish(write) ? PrepareOutcome::Done : PrepareOutcome::WriteFailed;
}

} // namespace prepare
