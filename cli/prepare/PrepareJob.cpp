#include "cli/prepare/PrepareJob.h"

#include "cli/batch/CheckMinDrawn.h"
#include "cli/batch/IsReady.h"
#include "cli/batch/WriteOutput.h"
#include "cli/files/Marks.h"
#include "cli/files/OlderPicture.h"
#include "cli/prepare/Findings.h"
#include "cli/prepare/Layouts.h"
#include "cli/prepare/PrepareOptionsFor.h"
#include "cli/prepare/RewoundFile.h"
#include "cli/prepare/ShouldBeVisible.h"
#include "cli/prepare/WhyBlank.h"
#include "cli/system/InterruptGuard.h"

#include <chrono>
#include <string>

namespace plexorn {

namespace {

using Clock = std::chrono::steady_clock;
using prepare::PrepareOutcome;

// Reports why there is no prepared drawing. whyNotWritten is used if the failure has no reason of its own, as
// the end of a sentence.
void TellFailure(PrepareOutcome outcome, const RewoundFile& input, const std::string& whyNotWritten,
                 const Source& source, const Job& job, Report& report)
{
    if (outcome == PrepareOutcome::NoLayout)
        return report.Failed(source.ShownName(), whyNotWritten, ExitCode::Usage);
    if (outcome == PrepareOutcome::ReadFailed)
        return report.Failed(source.ShownName(), input.WhyFailed(), ExitCode::File);
    report.Failed(job.output, "cannot be written: " + whyNotWritten, ExitCode::File);
}

void Prepare(Source& source, const Job& job, const Options& options, Report& report)
{
    const Clock::time_point start = Clock::now();
    RewoundFile input(source);
    prepare::Report findings;
    ListFindings(findings, report);
    PrepareOutcome outcome = PrepareOutcome::Done;
    PreparedOutcome told;
    told.hasReplacedOther = HoldsOtherFile(job.output);
    const std::string reason = WriteOutput(job, options, [&](OutputFile& file) {
        const auto put = [&](std::string_view bytes) {
            told.bytes += bytes.size();
            return file.Write(bytes.data(), bytes.size());
        };
        // The mark comes with the drawing: without one, nothing is written.
        const auto write = [&](std::string_view bytes) {
            return (told.bytes > 0 || put(kDrawingMark)) && put(bytes);
        };
        outcome = prepare::PrepareDrawing(input, PrepareOptionsFor(options), write, findings, {});
        return outcome == PrepareOutcome::Done;
    });
    // An interruption ends the process as soon as nothing is written any more; there is nothing to say.
    if (!reason.empty() && InterruptGuard::IsInterrupted())
        return;
    if (!reason.empty())
        return TellFailure(outcome, input,
                           outcome == PrepareOutcome::NoLayout ? WhyNoLayout(options.layout, findings)
                                                               : reason,
                           source, job, report);
    told.output = job.output;
    TellFindings(findings, report);
    told.share = ShareOf(findings);
    if ((findings.isBlank || told.share.shown == 0) && ShouldBeVisible(findings))
        report.Doubtful(WhyBlank(findings), ExitCode::Blank);
    CheckMinDrawn(told.share, options, report);
    told.time = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
    report.Prepared(told);
}

} // namespace

void PrepareJob(const Job& job, const Options& options, Report& report)
{
    if (!job.reason.empty())
        return report.Failed(ShownName(job.input), job.reason, job.code);
    Source source(job.input, Forms::All);
    if (IsReady(source, job, options, report))
        Prepare(source, job, options, report);
}

} // namespace plexorn
