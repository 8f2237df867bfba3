#include "prepare/Prepare.h"

#include "prepare/InputSources.h"
#include "prepare/Layouts.h"
#include "prepare/PrepareDrawing.h"

#include <cmath>

using namespace prepare;

namespace {

PrepareResult ResultOf(PrepareOutcome outcome)
{
    switch (outcome) {
    case PrepareOutcome::Done:
        return PREPARE_DONE;
    case PrepareOutcome::NoDrawing:
        return PREPARE_NO_DRAWING;
    case PrepareOutcome::ReadFailed:
        return PREPARE_READ_FAILED;
    case PrepareOutcome::WriteFailed:
        return PREPARE_WRITE_FAILED;
    case PrepareOutcome::Cancelled:
        return PREPARE_CANCELLED;
    case PrepareOutcome::NoLayout:
        return PREPARE_NO_LAYOUT;
    case PrepareOutcome::BadOptions:
        break;
    }
    return PREPARE_BAD_OPTIONS;
}

PrepareFinding FindingOf(Finding finding)
{
    switch (finding) {
    case Finding::Rewritten:
        return PREPARE_REWRITTEN;
    case Finding::NotShown:
        return PREPARE_NOT_SHOWN;
    case Finding::Changed:
        return PREPARE_CHANGED;
    case Finding::Repaired:
        return PREPARE_REPAIRED;
    case Finding::Cut:
        break;
    }
    return PREPARE_CUT;
}

std::vector<std::string> PatternsOf(const char* const* patterns)
{
    std::vector<std::string> result;
    for (; patterns != nullptr && *patterns != nullptr; ++patterns)
        result.emplace_back(*patterns);
    return result;
}

bool AreGood(const PrepareOptions& options)
{
    return (options.profile == PREPARE_FOR_MODULE || options.profile == PREPARE_FOR_STANDARD) &&
           (options.fill == PREPARE_FILLED || options.fill == PREPARE_FILL_OUTLINES ||
            options.fill == PREPARE_FILLED_BY_NAME) &&
           std::isfinite(options.tolerance) && options.tolerance >= 0;
}

FillForm FillFormOf(PrepareFill fill)
{
    switch (fill) {
    case PREPARE_FILL_OUTLINES:
        return FillForm::Outlines;
    case PREPARE_FILLED_BY_NAME:
        return FillForm::Named;
    case PREPARE_FILLED:
        break;
    }
    return FillForm::Strokes;
}

Options OptionsOf(const PrepareOptions& given)
{
    Options options;
    options.profile = given.profile == PREPARE_FOR_STANDARD ? Profile::Standard : Profile::Module;
    options.fill = FillFormOf(given.fill);
    options.tolerance = given.tolerance;
    options.mayWrap = !given.forbidWrap;
    options.showsAllLayers = given.showAllLayers;
    options.isForPaper = given.isForPaper;
    options.onlyLayers = PatternsOf(given.onlyLayers);
    options.withoutLayers = PatternsOf(given.withoutLayers);
    options.encoding = given.encoding == nullptr ? "" : given.encoding;
    options.redrawsDimensions = given.redrawDimensions;
    options.marksLayers = given.markLayers;
    options.layout = given.layout == nullptr ? "" : given.layout;
    return options;
}

void TellReport(const Report& report, const PrepareOptions& options)
{
    if (options.report == nullptr)
        return;
    for (const auto& [key, entry] : report.Entries()) {
        const PrepareReport told = {FindingOf(key.finding), key.subject.c_str(), key.detail.c_str(),
                                    entry.count, entry.firstLine};
        options.report(options.user, &told);
    }
}

// Lists the layouts if asked to; returns PREPARE_DONE if preparing may go on.
PrepareResult TellLayouts(ReopenableSource& source, const PrepareOptions& options)
{
    if (options.layouts == nullptr)
        return PREPARE_DONE;
    std::vector<LayoutSize> layouts;
    const PrepareOutcome outcome =
        ListLayouts(source, options.encoding == nullptr ? "" : options.encoding, layouts);
    for (const LayoutSize& layout : layouts) {
        const PrepareLayout told = {layout.name.c_str(), layout.width, layout.height};
        if (!options.layouts(options.user, &told))
            return PREPARE_CANCELLED;
    }
    return ResultOf(outcome);
}

PrepareResult Prepare(ReopenableSource& source, const PrepareOptions& options, PrepareWriteFunction write)
{
    if (const PrepareResult told = TellLayouts(source, options); told != PREPARE_DONE)
        return told;
    Report report;
    const auto writeBytes = [&](std::string_view bytes) {
        return write(options.user, bytes.data(), bytes.size());
    };
    ProgressFunction progress;
    if (options.progress != nullptr)
        progress = [&](double share) { return options.progress(options.user, share); };
    const PrepareOutcome outcome = PrepareDrawing(source, OptionsOf(options), writeBytes, report, progress);
    if (outcome == PrepareOutcome::Done)
        TellReport(report, options);
    return ResultOf(outcome);
}

// Makes the input and prepares it. Every exception means that memory is short, whatever its type.
template <class MakeInput>
PrepareResult PrepareGuarded(const PrepareOptions* options, PrepareWriteFunction write, bool hasInput,
                             const MakeInput& makeInput)
{
    constexpr PrepareOptions kDefaults = {};
    const PrepareOptions& given = options == nullptr ? kDefaults : *options;
    if (!hasInput || write == nullptr || !AreGood(given))
        return PREPARE_BAD_OPTIONS;
    try {
        auto input = makeInput(given);
        return Prepare(input, given, write);
    } catch (...) {
        return PREPARE_NO_MEMORY;
    }
}

} // namespace

PrepareResult prepareFile(const char* path, const PrepareOptions* options, PrepareWriteFunction write)
{
    return PrepareGuarded(options, write, path != nullptr,
                          [&](const PrepareOptions&) { return FileInput(path); });
}

PrepareResult prepareMemory(const char* bytes, size_t size, const PrepareOptions* options,
                            PrepareWriteFunction write)
{
    return PrepareGuarded(options, write, bytes != nullptr || size == 0, [&](const PrepareOptions&) {
        return MemoryInput(bytes == nullptr ? std::string_view() : std::string_view(bytes, size));
    });
}

PrepareResult prepareStream(PrepareReadFunction read, const PrepareOptions* options,
                            PrepareWriteFunction write)
{
    return PrepareGuarded(options, write, read != nullptr,
                          [&](const PrepareOptions& given) { return FunctionInput(read, given.user); });
}
