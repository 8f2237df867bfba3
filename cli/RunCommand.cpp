#include "cli/RunCommand.h"

#include "cli/draw/DrawAll.h"
#include "cli/info/TellAll.h"
#include "cli/options/ExitCode.h"
#include "cli/options/ParseOptions.h"

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

ExitCode Run(std::vector<std::string> arguments)
{
    try {
        std::variant<Options, ExitCode> parsed = ParseOptions(std::move(arguments));
        if (const ExitCode* exitCode = std::get_if<ExitCode>(&parsed))
            return *exitCode;
        const Options& options = std::get<Options>(parsed);
        return options.isInfo ? TellAll(options) : DrawAll(options);
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
