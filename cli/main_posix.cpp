#include "cli/RunCommand.h"
#include "cli/system/InterruptGuard.h"
#include "cli/system/Native.h"

#include <csignal>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    plexorn::FillStandardStreams();
    // A picture beyond the largest file that is allowed fails as on a full disk, and the other drawings go
    // on.
    std::signal(SIGXFSZ, SIG_IGN);
    plexorn::SayWhenStopped();
    return plexorn::RunCommand(
        [=] { return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc); });
}
