#include "cli/generate/generate.h"

#include "cli/joined.h"

namespace plexorn {

namespace {

// The first part of an option's help, up to where it goes into detail.
std::string_view Brief(std::string_view help)
{
    return help.substr(0, help.find_first_of(";.:,"));
}

// text between single quotes of a shell.
std::string Quoted(std::string_view text)
{
    std::string out = "'";
    for (char character : text)
        out += character == '\'' ? std::string("'\\''") : std::string(1, character);
    return out + "'";
}

std::string NamesOf(const CommandRow& command)
{
    std::string out;
    for (const OptionRow& row : command.options)
        for (std::string_view name : {row.ShortName(), row.LongName()})
            if (!name.empty())
                out.append(out.empty() ? "" : " ").append(name);
    return out;
}

std::string BashValueCase(const OptionRow& row)
{
    std::string pattern(row.LongName());
    if (!row.ShortName().empty())
        pattern = std::string(row.ShortName()) + " | " + pattern;
    std::string out = "        " + pattern + ")\n";
    if (row.proposal == Proposal::Files)
        out += "            mapfile -t COMPREPLY < <(compgen -f -- \"$current\")\n";
    else if (row.proposal == Proposal::Words)
        out += "            mapfile -t COMPREPLY < <(compgen -W " + Quoted(row.words) + " -- \"$current\")\n";
    return out + "            return\n            ;;\n";
}

// Names have blanks and characters of patterns, and so they are read line by line. The shell cuts --units=m
// into three words. Behind -- stand no options.
constexpr std::string_view BashStart =
    "# Completion of the command plexorn for bash.\n"
    "_plexorn_drawings()\n{\n"
    "    mapfile -t COMPREPLY < <(compgen -d -- \"$1\"; compgen -f -X '!*.[dD][xX][fF]' -- \"$1\")\n"
    "}\n"
    "_plexorn()\n{\n"
    "    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} i\n"
    "    for ((i = 1; i < COMP_CWORD; ++i)); do\n"
    "        if [[ ${COMP_WORDS[i]} == -- ]]; then\n"
    "            _plexorn_drawings \"$current\"\n"
    "            return\n"
    "        fi\n"
    "    done\n"
    "    if [[ $current == = ]]; then\n"
    "        current=\n"
    "    elif [[ $previous == = ]]; then\n"
    "        previous=${COMP_WORDS[COMP_CWORD - 2]}\n"
    "    fi\n";

constexpr std::string_view BashEnd =
    "    esac\n"
    "    if [[ $current == -* ]]; then\n"
    "        mapfile -t COMPREPLY < <(compgen -W \"$options\" -- \"$current\")\n"
    "        return\n"
    "    fi\n"
    "    _plexorn_drawings \"$current\"\n"
    "    if [[ $COMP_CWORD == 1 && info == \"$current\"* ]]; then\n"
    "        COMPREPLY+=(info)\n"
    "    fi\n"
    "}\n"
    "complete -o filenames -F _plexorn plexorn\n";

// An option as zsh's _arguments takes it.
std::string ZshRow(const OptionRow& row)
{
    std::string_view shortName = row.ShortName();
    std::string_view longName = row.LongName();
    std::string explained = Joined({"[", Brief(row.help), "]"});
    if (!row.value.empty())
        explained += Joined({":", row.value, ":"});
    if (row.proposal == Proposal::Files)
        explained += "_files";
    else if (row.proposal == Proposal::Words)
        explained += Joined({"(", row.words, ")"});
    if (shortName.empty())
        return Joined({"        ", Quoted(Joined({longName, explained})), " \\\n"});
    return Joined({"        ", Quoted(Joined({"(", shortName, " ", longName, ")"})), "{", shortName, ",",
                   longName, "}", Quoted(explained), " \\\n"});
}

std::string ZshArguments(const CommandRow& command)
{
    std::string out = "    _arguments -s -S \\\n";
    for (const OptionRow& row : command.options)
        out += ZshRow(row);
    return out;
}

std::string FishRow(const OptionRow& row, std::string_view condition)
{
    std::string out = "complete -c plexorn -n " + Quoted(condition);
    if (!row.ShortName().empty())
        out.append(" -s ").append(row.ShortName().substr(1));
    out.append(" -l ").append(row.LongName().substr(2));
    if (!row.value.empty())
        out += row.proposal == Proposal::Files ? " -r -F" : " -x";
    if (row.proposal == Proposal::Words)
        out.append(" -a ").append(Quoted(row.words));
    return out.append(" -d ").append(Quoted(Brief(row.help))).append("\n");
}

constexpr std::string_view BashInfo = R"(
    if [[ $COMP_CWORD -gt 1 && ${COMP_WORDS[1]} == info ]]; then
        options=)";

constexpr std::string_view BashCases = R"(
    fi
    case $previous in
)";

} // namespace

std::string BashCompletion()
{
    std::string out = Joined({BashStart, "    local options=", Quoted(NamesOf(DrawCommand())), BashInfo,
                              Quoted(NamesOf(InfoCommand())), BashCases});
    for (const OptionRow& row : DrawCommand().options)
        if (!row.value.empty())
            out += BashValueCase(row);
    return out.append(BashEnd);
}

std::string ZshCompletion()
{
    std::string files = "'*:drawing:_files -g \"*.(#i)dxf(-.)\"'\n";
    std::string out = "#compdef plexorn\n# Completion of the command plexorn for zsh.\n"
                      "if (( CURRENT > 2 )) && [[ $words[2] == info ]]; then\n"
                      "    shift words\n"
                      "    (( CURRENT-- ))\n";
    out += ZshArguments(InfoCommand()) + "        " + files + "else\n";
    out += ZshArguments(DrawCommand()) +
           "        '1: :_alternative \"commands:command:(info)\" \"files:drawing:_files -g "
           "\\*.\\(\\#i\\)dxf\\(-.\\)\"' \\\n"
           "        " +
           files + "fi\n";
    return out;
}

std::string FishCompletion()
{
    std::string out = "# Completion of the command plexorn for fish.\n"
                      "complete -c plexorn -n '__fish_is_first_arg' -a info -d 'Tell what drawings hold'\n";
    for (const OptionRow& row : DrawCommand().options)
        out += FishRow(row, "not __fish_seen_subcommand_from info");
    for (const OptionRow& row : InfoCommand().options)
        out += FishRow(row, "__fish_seen_subcommand_from info");
    return out;
}

std::string Generated(std::string_view name)
{
    if (name == "man")
        return ManualPage();
    if (name == "bash")
        return BashCompletion();
    if (name == "zsh")
        return ZshCompletion();
    return name == "fish" ? FishCompletion() : std::string();
}

} // namespace plexorn
