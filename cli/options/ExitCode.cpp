#include "cli/options/ExitCode.h"

namespace plexorn {

ExitCode ExitCodeOf(const RunResult& result)
{
    if (result.failed > 0)
        return result.jobs > 1 ? ExitCode::SomeFailed : result.lastFailure;
    if (result.isAnyBlank)
        return ExitCode::Blank;
    return result.isAnyIncomplete ? ExitCode::Incomplete : ExitCode::Drawn;
}

} // namespace plexorn
