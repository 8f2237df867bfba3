#include "cli/RunCommand.h"

#include "cli/batch/RunBatch.h"
#include "cli/draw/DrawJob.h"
#include "cli/info/RunInfo.h"
#include "cli/info/TellLayouts.h"
#include "cli/options/ExitCode.h"
#include "cli/options/ParseOptions.h"
#include "cli/prepare/Layouts.h"
#include "cli/prepare/PrepareJob.h"

#include <cstdio>
#include <exception>
#include <new>
#include <variant>

namespace plexorn {

namespace {

ExitCode Refuse(const char* reason, ExitCode code) noexcept
{
    std::fprintf(stderr, "plexorn: %s\n", reason);
    return code;
}

ExitCode Follow(const Options& options)
{
    switch (options.task) {
    case Task::Info:
        return RunInfo(options);
    case Task::Prepare:
        return RunBatch(options, PrepareJob, LayoutsIn);
    case Task::Draw:
        break;
    }
    return options.listsLayouts ? TellLayouts(options) : RunBatch(options, DrawJob, LayoutsIn);
}

ExitCode Run(const std::function<std::vector<std::string>()>& getArguments)
{
    try {
        std::variant<Options, ExitCode> parsed = ParseOptions(getArguments());
        if (const ExitCode* exitCode = std::get_if<ExitCode>(&parsed))
            return *exitCode;
        return Follow(std::get<Options>(parsed));
    } catch (const UsageError& error) {
        Refuse(error.what(), ExitCode::Usage);
        std::fputs("Run with --help for more information.\n", stderr);
        return ExitCode::Usage;
    } catch (const std::bad_alloc&) {
        return Refuse("memory is short", ExitCode::File);
    } catch (const std::exception& error) {
        return Refuse(error.what(), ExitCode::File);
    }
}

} // namespace

int RunCommand(const std::function<std::vector<std::string>()>& getArguments) noexcept
{
    return static_cast<int>(Run(getArguments));
}

} // namespace plexorn
