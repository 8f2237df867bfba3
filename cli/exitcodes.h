// What the command's exit code tells; scripts rely on these numbers.
#ifndef PLEXORN_CLI_EXITCODES_H
#define PLEXORN_CLI_EXITCODES_H

namespace plexorn {

enum ExitCode : int {
    ExitDrawn = 0,       // all is done, whatever the messages about the drawings
    ExitMessages = 1,    // all is done, there were messages, and --strict was given
    ExitUsage = 2,       // the command line is wrong
    ExitFile = 3,        // the file cannot be read or the SVG cannot be written
    ExitNotAsciiDxf = 4, // the file is something else
    ExitSomeFailed = 5   // of several drawings, at least one failed
};

} // namespace plexorn

#endif
