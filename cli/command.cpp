#include "command.h"

#include "batch.h"
#include "exitcodes.h"
#include "info/command.h"
#include "options.h"

#include <cstdio>
#include <exception>
#include <new>

namespace plexorn {

namespace {

int Refuse(const char* reason, ExitCode code) noexcept
{
    std::fprintf(stderr, "plexorn: %s\n", reason);
    return code;
}

} // namespace

int RunCommand(std::vector<std::string> arguments) noexcept
{
    try {
        std::variant<Options, int> parsed = ParseOptions(std::move(arguments));
        if (const int* exitCode = std::get_if<int>(&parsed))
            return *exitCode;
        const Options& options = std::get<Options>(parsed);
        return options.isInfo ? TellAll(options) : DrawAll(options);
    } catch (const CUsageError& error) {
        return Refuse((std::string(error.what()) + "\nRun with --help for more information.").c_str(),
                      ExitUsage);
    } catch (const std::bad_alloc&) {
        return Refuse("memory is short", ExitFile);
    } catch (const std::exception& error) {
        return Refuse(error.what(), ExitFile);
    }
}

} // namespace plexorn
