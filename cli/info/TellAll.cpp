#include "cli/info/TellAll.h"

#include "cli/contents/Collector.h"
#include "cli/files/Inputs.h"
#include "cli/files/Source.h"
#include "cli/info/InfoJson.h"
#include "cli/info/InfoText.h"
#include "cli/report/Report.h"

#include <cerrno>
#include <cstdio>
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

void Tell(const Input& input, const Options& options, Report& report)
{
    if (!input.reason.empty())
        return report.Failed(input.name, input.reason, ExitCode::File);
    Source source(input.name);
    if (!source.Reason().empty())
        return report.Failed(source.ShownName(), source.Reason(), source.Code());
    std::FILE* file = source.Rewound();
    DrawingInfo info = CollectInfo(file, options.withTexts);
    if (std::ferror(file))
        return report.Failed(source.ShownName(), "cannot be read: " + std::generic_category().message(EIO),
                             ExitCode::File);
    info.bytes = SizeOf(source.Path());
    Print(options.isJson ? InfoJson(source.ShownName(), info, options.withTexts)
                         : InfoText(source.ShownName(), info, options.withTexts));
}

} // namespace

ExitCode TellAll(const Options& options)
{
    Inputs inputs = FindInputs(options);
    Printer printer(inputs.files.size(), false);
    ExitCode code = ExitCode::Drawn;
    for (std::size_t number = 0; number < inputs.files.size(); ++number) {
        const Input& input = inputs.files[number];
        Report report(printer, number, ShownName(input.name), {});
        Tell(input, options, report);
        if (report.Code() != ExitCode::Drawn)
            code = inputs.files.size() > 1 ? ExitCode::SomeFailed : report.Code();
    }
    return code;
}

} // namespace plexorn
