#include "cli/info/RunInfo.h"

#include "cli/contents/Collector.h"
#include "cli/files/Inputs.h"
#include "cli/files/ProtectedInputs.h"
#include "cli/files/SizeOfFile.h"
#include "cli/files/Source.h"
#include "cli/info/InfoJson.h"
#include "cli/info/InfoText.h"
#include "cli/info/Print.h"
#include "cli/info/Summary.h"
#include "cli/prepare/Becoming.h"
#include "cli/prepare/Findings.h"
#include "cli/prepare/TextsOf.h"
#include "cli/report/Report.h"

#include <new>
#include <optional>
#include <system_error>

namespace plexorn {

namespace {

// What is printed about a drawing.
struct Told {
    DrawingInfo info;
    std::optional<Becoming> becoming; // unless it is not prepared
};

Told ReadWhole(Source& source, const Options& options)
{
    Told told;
    told.info = CollectInfo(source.Rewound(), options.withTexts && options.isAsIs);
    if (told.info.header.readError != 0)
        throw std::system_error(told.info.header.readError, std::generic_category());
    if (!options.isAsIs) {
        if (options.withTexts)
            told.info.texts = TextsOf(source, options);
        told.becoming = BecomingOf(source, options);
    }
    return told;
}

// Nothing, after a report, when the drawing cannot be read.
std::optional<Told> Read(Source& source, const Options& options, Report& report)
{
    std::string reason;
    try {
        return ReadWhole(source, options);
    } catch (const std::bad_alloc&) {
        reason = "memory is short";
    } catch (const std::system_error& error) {
        reason = error.code().message();
    }
    report.Failed(source.ShownName(), "cannot be read: " + reason, ExitCode::File);
    return {};
}

void Tell(const Input& input, const Options& options, Report& report, Summary& summary)
{
    if (!input.reason.empty())
        return report.Failed(input.name, input.reason, ExitCode::File);
    Source source(input.name, options.isAsIs ? Forms::Ascii : Forms::All);
    if (!source.Reason().empty())
        return report.Failed(source.ShownName(), source.Reason(), source.Code());
    std::optional<Told> told = Read(source, options, report);
    if (!told)
        return;
    const Becoming* const becoming = told->becoming ? &*told->becoming : nullptr;
    if (options.isSummary)
        return summary.Add(becoming != nullptr ? becoming->share : ShareOf(told->info));
    told->info.bytes = SizeOfFile(source.Path());
    const auto text = options.isJson ? InfoJson : InfoText;
    Print(text(source.ShownName(), told->info, becoming, options.withTexts));
}

} // namespace

ExitCode RunInfo(const Options& options)
{
    const Inputs inputs = FindInputs(options);
    ProtectedInputs(inputs.files, options).CheckStandardOutput();
    Printer printer(inputs.files.size(), false);
    Summary summary;
    RunResult result{inputs.files.size()};
    for (std::size_t number = 0; number < inputs.files.size(); ++number) {
        const Input& input = inputs.files[number];
        Report report(printer, number, ShownName(input.name), {});
        Tell(input, options, report, summary);
        report.End();
        if (report.Code() == ExitCode::Drawn)
            continue;
        summary.AddFailed();
        ++result.failed;
        result.lastFailure = report.Code();
    }
    if (options.isSummary)
        Print(options.isJson ? summary.JsonText() : summary.Text());
    return ExitCodeOf(result);
}

} // namespace plexorn
