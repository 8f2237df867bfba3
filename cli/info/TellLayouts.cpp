#include "cli/info/TellLayouts.h"

#include "cli/files/Inputs.h"
#include "cli/files/ProtectedInputs.h"
#include "cli/files/Source.h"
#include "cli/info/Print.h"
#include "cli/prepare/Layouts.h"
#include "cli/report/Printable.h"
#include "cli/report/Report.h"

#include <new>
#include <system_error>

namespace plexorn {

namespace {

// Lines with the names of the sheets of source; each begins with before.
std::string LinesOf(Source& source, const Options& options, const std::string& before)
{
    std::string lines;
    for (const std::string& name : LayoutsOf(source, options))
        lines.append(before).append(Printable(name)).append("\n");
    return lines;
}

void Tell(const Input& input, const Options& options, bool isOne, Report& report)
{
    if (!input.reason.empty())
        return report.Failed(input.name, input.reason, ExitCode::File);
    Source source(input.name, Forms::All);
    if (!source.Reason().empty())
        return report.Failed(source.ShownName(), source.Reason(), source.Code());
    std::string reason;
    try {
        return Print(LinesOf(source, options, isOne ? "" : source.ShownName() + ": "));
    } catch (const std::bad_alloc&) {
        reason = "memory is short";
    } catch (const std::system_error& error) {
        reason = error.code().message();
    }
    report.Failed(source.ShownName(), "cannot be read: " + reason, ExitCode::File);
}

} // namespace

ExitCode TellLayouts(const Options& options)
{
    const Inputs inputs = FindInputs(options);
    ProtectedInputs(inputs.files, options).CheckStandardOutput();
    Printer printer(inputs.files.size(), false);
    RunResult result{inputs.files.size()};
    for (std::size_t number = 0; number < inputs.files.size(); ++number) {
        const Input& input = inputs.files[number];
        Report report(printer, number, ShownName(input.name), {});
        Tell(input, options, !inputs.areMany, report);
        report.End();
        if (report.Code() == ExitCode::Drawn)
            continue;
        ++result.failed;
        result.lastFailure = report.Code();
    }
    return ExitCodeOf(result);
}

} // namespace plexorn
