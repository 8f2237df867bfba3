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
#include <utility>
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

ExitCode Run(std::vector<std::string> arguments)
{
    try {
        std::variant<Options, ExitCode> parsed = ParseOptions(std::move(arguments));
        if (const ExitCode* exitCode = std::get_if<ExitCode>(&parsed))
            return *exitCode;
        return Follow(std::get<Options>(parsed));
    } catch (const UsageError& error) {
        return Refuse((std::string(error.what()) + "\nRun with --help for more information.").c_str(),
                      ExitCode::Usage);
    } catch (const std::bad_alloc&) {
        return Refuse("memory is short", ExitCode::File);
    } catch (const std::exception& error) {
        return Refuse(error.what(), ExitCode::File);
    }
}

} // namespace

int RunCommand(std::vector<std::string> arguments) noexcept
{
    return static_cast<int>(Run(std::move(arguments)));
}

} // namespace plexorn
