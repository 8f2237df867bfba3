// The options of the command, described once: the parser and the help are both made from these tables. The
// manual page and the completions of shells (cli/share) list the same options; a test compares them.
#pragma once

#include "cli/options/ExitCode.h"
#include "cli/options/Options.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace plexorn {

// Where the parser puts an option, one that may be given several times into a vector; std::monostate for
// those that it answers itself.
using OptionTarget = std::variant<std::monostate, bool Options::*, std::string Options::*,
                                  std::size_t Options::*, std::vector<std::string> Options::*>;

struct OptionRow {
    std::string_view names; // "-o,--output"
    std::string_view value; // the word for the value in the help; empty for a flag
    std::string_view help;
    OptionTarget target{};
    // Why a text cannot be the value; empty when it can.
    std::string (*check)(const std::string&) = nullptr;
};

// A line of the help: what it is about, and what is to be said.
struct HelpRow {
    std::string_view name;
    std::string_view help;
};

// One way to call the command: plexorn itself, or a command within it.
struct CommandRow {
    Task task;
    std::string_view name; // "plexorn" or "plexorn info"
    std::string_view help;
    std::string_view fileHelp; // what FILE is
    std::span<const OptionRow> options;
    std::span<const HelpRow> examples;
};

// All of them, in the order of Task.
std::span<const CommandRow> Commands();
const CommandRow& CommandFor(Task task);

struct ExitRow {
    ExitCode code;
    std::string_view help;
};
std::span<const ExitRow> ExitTable();

// What the command cannot do, and what to do with its faults.
std::span<const HelpRow> LimitTable();

} // namespace plexorn
