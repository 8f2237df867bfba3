// What the command's exit code tells; scripts rely on these numbers.
#ifndef PLEXORN_CLI_EXITCODES_H
#define PLEXORN_CLI_EXITCODES_H

namespace plexorn {

enum ExitCode : int {
    ExitDrawn = 0,      // the picture is written, whatever the messages about the file
    ExitUsage = 2,      // the command line is wrong
    ExitFile = 3,       // the file cannot be read or the SVG cannot be written
    ExitNotAsciiDxf = 4 // the file is something else
};

} // namespace plexorn

#endif
