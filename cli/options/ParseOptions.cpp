#include "cli/options/ParseOptions.h"

#include "cli/options/HelpText.h"
#include "cli/options/OptionChecks.h"
#include "cli/options/OptionTable.h"
#include "cli/options/Suggestion.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iostream>
#include <utility>

namespace plexorn {

namespace {

void AddOption(CLI::App& app, const OptionRow& row, Options& options)
{
    const std::string names(row.names);
    const std::string help(row.help);
    if (const auto* flag = std::get_if<bool Options::*>(&row.target)) {
        app.add_flag(names, options.*(*flag), help)->disable_flag_override();
        return;
    }
    CLI::Option* option = nullptr;
    if (const auto* texts = std::get_if<std::vector<std::string> Options::*>(&row.target))
        option = app.add_option(names, options.*(*texts), help)->allow_extra_args(false);
    else if (const auto* text = std::get_if<std::string Options::*>(&row.target))
        option = app.add_option(names, options.*(*text), help);
    else if (const auto* number = std::get_if<std::size_t Options::*>(&row.target))
        option = app.add_option(names, options.*(*number), help);
    if (option)
        option->check(row.check, "", "");
}

ExitCode WrongUsage(const std::string& text)
{
    std::cerr << text << "\nRun with --help for more information.\n";
    return ExitCode::Usage;
}

// Ends a command that has printed what it was asked for.
ExitCode Printed()
{
    if (std::cout.flush())
        return ExitCode::Drawn;
    std::cerr << "plexorn: the standard output cannot be written\n";
    return ExitCode::File;
}

// The word of a command within the command, such as "info"; empty for the command itself.
std::string_view WordOf(const CommandRow& command)
{
    const std::string_view name = command.name;
    const std::size_t blank = name.find(' ');
    return blank == std::string_view::npos ? std::string_view() : name.substr(blank + 1);
}

// The command whose word comes after an option or a drawing, where it is taken for a drawing's name; null for
// none.
const CommandRow* MisplacedCommand(const Options& options)
{
    if (options.task != Task::Draw)
        return nullptr;
    std::error_code ignored;
    for (const CommandRow& command : Commands().subspan(1))
        for (const std::string& input : options.inputs)
            if (input == WordOf(command) && !std::filesystem::exists(input, ignored))
                return &command;
    return nullptr;
}

// Whether anything is said about how the drawing is prepared.
bool AsksForPreparing(const Options& options)
{
    return options.layers != "shown" || !options.onlyLayers.empty() || !options.withoutLayers.empty() ||
           !options.tolerance.empty() || options.forbidsWrap || !options.encoding.empty() ||
           options.redrawsDimensions || options.fill != "filled" || !options.layout.empty() ||
           options.layersAs != "groups";
}

bool IsStandardInputAlone(const Options& options)
{
    return options.list.empty() && options.inputs.size() == 1 && options.inputs[0] == kStandardStream;
}

bool NamesStandardInput(const Options& options)
{
    return std::find(options.inputs.begin(), options.inputs.end(), kStandardStream) != options.inputs.end();
}

// The names that are wrong, and what was meant by the first of them for which something is near.
std::string ExtraText(const CommandRow& command, const std::string& error,
                      const std::vector<std::string>& extras)
{
    for (const std::string& extra : extras)
        if (const std::string meant = SuggestedOption(command, extra); !meant.empty())
            return std::string(error).append("\nDid you mean ").append(meant).append("?");
    return error;
}

// What the parser says of --strict=yes, in the words of the rest.
std::string MismatchText(const std::string& error)
{
    constexpr std::string_view kOverride = " was given a disallowed flag override";
    const std::size_t end = error.find(kOverride);
    return end == std::string::npos ? error : "--" + error.substr(0, end) + " takes no value";
}

// Why the first word is wrong: the name of a command that is written wrongly is taken for a drawing.
std::string WhyNoDrawing(const Options& options)
{
    if (options.task != Task::Draw || options.inputs.empty())
        return "";
    const std::string& word = options.inputs[0];
    const std::string meant = SuggestedCommand(word);
    std::error_code ignored;
    if (meant.empty() || std::filesystem::exists(word, ignored))
        return "";
    return word + ": there is no such file\nDid you mean " + meant + "?";
}

// Why the arguments, each of them right, cannot be followed together; empty when they can.
std::string WhyWrong(const Options& options)
{
    if (options.inputs.empty() && options.list.empty())
        return "FILE is required";
    if (NamesStandardInputTwice(options.inputs, options.list))
        return "The standard input can be read once only";
    if (options.layout == kAllLayouts && NamesStandardInput(options))
        return "The standard input can be read once only; give one layout's name";
    if (options.isNullSeparated && options.list.empty())
        return "--null says how a list is written; give --files-from as well";
    if (options.hasTrueSize && !options.scale.empty())
        return "Give --scale or --true-size, not both";
    if (options.isAsIs && (!options.scale.empty() || options.fit != "all"))
        return "--as-is leaves sizes and views alone; give it without --scale and --fit";
    if (options.isAsIs && AsksForPreparing(options))
        return "--as-is draws what the module draws by itself; give it without what is said about layers, "
               "curves, texts, dimensions and layouts";
    if (options.task == Task::Prepare && options.output.empty() && !IsStandardInputAlone(options))
        return "Say with -o where the prepared drawing goes";
    if (const CommandRow* const command = MisplacedCommand(options))
        return std::string(WordOf(*command))
            .append(" comes first, before options and drawings: ")
            .append(command->name)
            .append(" [OPTIONS] FILE...");
    return WhyNoDrawing(options);
}

std::variant<Options, ExitCode> Parse(const CommandRow& command, std::vector<std::string> arguments,
                                      Options options)
{
    CLI::App app(std::string(command.help), "plexorn");
    // A path may begin with a slash on Windows too.
    app.allow_windows_style_options(false);
    app.formatter_fn(
        [&](const CLI::App*, const std::string&, CLI::AppFormatMode) { return HelpText(command); });
    app.add_option("FILE", options.inputs, "")->check(CheckNotEmpty, "", "");
    for (const OptionRow& row : command.options)
        AddOption(app, row, options);
    if (options.task == Task::Draw)
        app.set_version_flag("--version", "plexorn " PLEXORN_VERSION);
    try {
        std::reverse(arguments.begin(), arguments.end());
        app.parse(std::move(arguments));
    } catch (const CLI::ExtrasError& error) {
        return WrongUsage(ExtraText(command, error.what(), app.remaining()));
    } catch (const CLI::ArgumentMismatch& error) {
        return WrongUsage(MismatchText(error.what()));
    } catch (const CLI::ParseError& error) {
        return app.exit(error, std::cout, std::cerr) == 0 ? Printed() : ExitCode::Usage;
    }
    if (const std::string reason = WhyWrong(options); !reason.empty())
        return WrongUsage(reason);
    return options;
}

} // namespace

std::variant<Options, ExitCode> ParseOptions(std::vector<std::string> arguments)
{
    Options options;
    for (const CommandRow& command : Commands().subspan(1))
        if (!arguments.empty() && arguments[0] == WordOf(command))
            options.task = command.task;
    if (options.task != Task::Draw)
        arguments.erase(arguments.begin());
    return Parse(CommandFor(options.task), std::move(arguments), options);
}

} // namespace plexorn
