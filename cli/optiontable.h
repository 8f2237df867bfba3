// The options of the command, described once: the parser, the help, the manual page and the completions of
// shells are all made from these tables.
#ifndef PLEXORN_CLI_OPTIONTABLE_H
#define PLEXORN_CLI_OPTIONTABLE_H

#include "options.h"

#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace plexorn {

// What a shell can propose for an option's value.
enum class Proposal { Nothing, Files, Words };

// Where the parser puts an option; std::monostate for those that it answers itself.
using OptionTarget = std::variant<std::monostate, bool Options::*, std::string Options::*, size_t Options::*>;

struct OptionRow {
    std::string_view names; // "-o,--output"
    std::string_view value; // what stands for the value in texts; empty for a flag
    std::string_view help;
    OptionTarget target{};
    Proposal proposal = Proposal::Nothing;
    std::string_view words{}; // what is proposed, separated by blanks
    // Why a text cannot be the value; empty when it can.
    std::string (*check)(const std::string&) = nullptr;

    // "-o" or empty, and "--output".
    std::string_view ShortName() const;
    std::string_view LongName() const;
};

// One way to call the command: plexorn itself, or a command within it.
struct CommandRow {
    std::string_view name; // "plexorn" or "plexorn info"
    std::string_view help;
    std::string_view fileHelp; // what FILE is
    std::span<const OptionRow> options;
};

const CommandRow& DrawCommand();
const CommandRow& InfoCommand();

struct ExitRow {
    int code;
    std::string_view help;
};
std::span<const ExitRow> ExitTable();

} // namespace plexorn

#endif
