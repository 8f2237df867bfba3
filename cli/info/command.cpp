#include "cli/info/command.h"

#include "cli/draw.h"
#include "cli/info/tell.h"
#include "cli/inputs.h"
#include "cli/source.h"

#include <cerrno>
#include <cstdio>
#include <stdexcept>
#include <system_error>

namespace plexorn {

namespace {

std::uint64_t SizeOf(const std::filesystem::path& path)
{
    std::error_code error;
    std::uintmax_t size = std::filesystem::file_size(path, error);
    return error ? 0 : size;
}

void Print(const std::string& text)
{
    bool isPrinted =
        std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
    if (!isPrinted)
        throw std::runtime_error("the standard output cannot be written: " +
                                 std::generic_category().message(errno));
}

void Tell(const Input& input, const Options& options, CReport& report)
{
    if (!input.reason.empty())
        return report.Failed(input.name, input.reason, ExitFile);
    CSource source(input.name);
    if (!source.Reason().empty())
        return report.Failed(source.ShownName(), source.Reason(), source.Code());
    std::FILE* file = source.Rewound();
    DrawingInfo info = CollectInfo(file, options.withTexts);
    if (std::ferror(file))
        return report.Failed(source.ShownName(), "cannot be read: " + std::generic_category().message(EIO),
                             ExitFile);
    info.bytes = SizeOf(source.Path());
    Print(options.isJson ? JsonOf(source.ShownName(), info, options.withTexts)
                         : TableOf(source.ShownName(), info, options.withTexts));
}

} // namespace

int TellAll(const Options& options)
{
    Inputs inputs = FindInputs(options);
    CPrinter printer(inputs.files.size(), false);
    int code = ExitDrawn;
    for (size_t number = 0; number < inputs.files.size(); ++number) {
        const Input& input = inputs.files[number];
        CReport report(printer, number, ShownName(input.name), {});
        Tell(input, options, report);
        if (report.Code() != ExitDrawn)
            code = inputs.files.size() > 1 ? ExitSomeFailed : report.Code();
    }
    return code;
}

} // namespace plexorn
