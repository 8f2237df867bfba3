#include "base/Utf8.h"
#include "cli/RunCommand.h"
#include "cli/system/InterruptGuard.h"
#include "cli/system/Native.h"

#include <string>
#include <vector>

#include <windows.h>

#include <shellapi.h>

namespace {

// The arguments as Unicode: those of main have gone through the code page.
std::vector<std::string> Arguments()
{
    int count = 0;
    LPWSTR* wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; wide && i < count; ++i)
        arguments.push_back(Utf8FromWide(wide[i]));
    LocalFree(wide);
    return arguments;
}

} // namespace

int main()
{
    plexorn::FillStandardStreams();
    // What is printed is UTF-8; a console keeps its code page beyond the process, so it is put back.
    UINT codePage = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    plexorn::SayWhenStopped();
    int exitCode = plexorn::RunCommand(Arguments);
    SetConsoleOutputCP(codePage);
    return exitCode;
}
