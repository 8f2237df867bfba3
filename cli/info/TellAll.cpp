#include "cli/info/TellAll.h"

#include "cli/contents/Collector.h"
#include "cli/files/Inputs.h"
#include "cli/files/Source.h"
#include "cli/info/InfoJson.h"
#include "cli/info/InfoText.h"
#include "cli/info/Summary.h"
#include "cli/report/Report.h"

#include <cerrno>
#include <cstdio>
#include <new>
#include <optional>
#include <stdexcept>
#include <system_error>

namespace plexorn {

namespace {

std::uint64_t SizeOf(const std::filesystem::path& path)
{
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    return error ? 0 : size;
}

void Print(const std::string& text)
{
    const bool isPrinted =
        std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
    if (!isPrinted)
        throw std::runtime_error("the standard output cannot be written: " +
                                 std::generic_category().message(errno));
}

// What the drawing holds; nothing, with the report told, when it cannot be read.
std::optional<DrawingInfo> ReadInfo(Source& source, const Options& options, Report& report)
{
    std::string reason;
    try {
        DrawingInfo info = CollectInfo(source.Rewound(), options.withTexts);
        if (info.header.readError == 0)
            return info;
        reason = std::generic_category().message(info.header.readError);
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
    Source source(input.name);
    if (!source.Reason().empty())
        return report.Failed(source.ShownName(), source.Reason(), source.Code());
    std::optional<DrawingInfo> read = ReadInfo(source, options, report);
    if (!read)
        return;
    DrawingInfo& info = *read;
    if (options.isSummary)
        return summary.Add(info);
    info.bytes = SizeOf(source.Path());
    Print(options.isJson ? InfoJson(source.ShownName(), info, options.withTexts)
                         : InfoText(source.ShownName(), info, options.withTexts));
}

} // namespace

ExitCode TellAll(const Options& options)
{
    Inputs inputs = FindInputs(options);
    Printer printer(inputs.files.size(), false);
    Summary summary;
    ExitCode code = ExitCode::Drawn;
    for (std::size_t number = 0; number < inputs.files.size(); ++number) {
        const Input& input = inputs.files[number];
        Report report(printer, number, ShownName(input.name), {});
        Tell(input, options, report, summary);
        if (report.Code() == ExitCode::Drawn)
            continue;
        summary.AddFailed();
        code = inputs.files.size() > 1 ? ExitCode::SomeFailed : report.Code();
    }
    if (options.isSummary)
        Print(options.isJson ? summary.JsonText() : summary.Text());
    return code;
}

} // namespace plexorn
