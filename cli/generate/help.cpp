#include "cli/generate/generate.h"

namespace plexorn {

namespace {

constexpr size_t Width = 96;
constexpr size_t Indent = 26;

// Appends text from column on, in lines that begin at Indent.
void AppendWrapped(std::string& out, size_t column, std::string_view text)
{
    if (column + 2 > Indent) {
        out.push_back('\n');
        column = 0;
    }
    out.append(Indent - column, ' ');
    column = Indent;
    while (!text.empty()) {
        size_t end = std::min(text.find(' '), text.size());
        if (column > Indent && column + 1 + end > Width) {
            out.append("\n").append(Indent, ' ');
            column = Indent;
        } else if (column > Indent) {
            out.push_back(' ');
            ++column;
        }
        out += text.substr(0, end);
        column += end;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    out.push_back('\n');
}

void AppendRow(std::string& out, const std::string& name, std::string_view help)
{
    out.append("  ").append(name);
    AppendWrapped(out, 2 + name.size(), help);
}

} // namespace

std::string HelpText(const CommandRow& command)
{
    std::string out(command.help);
    out.append("\nUsage: ").append(command.name).append(" [OPTIONS] FILE...\n");
    if (&command == &DrawCommand())
        out.append("       ")
            .append(InfoCommand().name)
            .append(" [OPTIONS] FILE...    (see plexorn info --help)\n");
    out.append("\n");
    AppendRow(out, "FILE", command.fileHelp);
    out.append("\nOptions:\n");
    for (const OptionRow& row : command.options) {
        std::string name(row.names);
        if (!row.value.empty())
            name.append(" ").append(row.value);
        AppendRow(out, name, row.help);
    }
    out.append("\nMessages go to the standard error stream as FILE:LINE: text.\n\nExit codes:\n");
    for (const ExitRow& row : ExitTable())
        AppendRow(out, std::to_string(row.code), row.help);
    return out;
}

} // namespace plexorn
