// What the command's exit code says; scripts rely on these numbers.
#pragma once

#include <cstddef>

namespace plexorn {

enum class ExitCode : int {
    Drawn = 0,       // all is done, whatever the messages about the drawings
    Incomplete = 1,  // all is done, but not all is shown, and --strict, --min-drawn or --keep-going was given
    Usage = 2,       // the command line is wrong
    File = 3,        // the file cannot be read or the SVG cannot be written
    NotAsciiDxf = 4, // the file is something else
    SomeFailed = 5,  // of several drawings, at least one failed
    Blank = 6        // all is done, but nothing of a drawing that holds entities or is damaged is visible
};

// What became of the drawings of one run.
struct RunResult {
    std::size_t jobs = 0; // drawings, or their sheets
    std::size_t failed = 0;
    ExitCode lastFailure = ExitCode::Drawn;
    bool isAnyBlank = false;
    bool isAnyIncomplete = false;
};

// Says the gravest of it: a failure, then a blank picture, then one that lacks something.
ExitCode ExitCodeOf(const RunResult& result);

} // namespace plexorn
