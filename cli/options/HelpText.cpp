#include "cli/options/HelpText.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

namespace plexorn {

namespace {

constexpr std::size_t kWidth = 96;
constexpr std::size_t kIndent = 26;

// Appends text from column on, in lines that begin at kIndent.
void AppendWrapped(std::string& out, std::size_t column, std::string_view text)
{
    if (column + 2 > kIndent) {
        out.push_back('\n');
        column = 0;
    }
    out.append(kIndent - column, ' ');
    column = kIndent;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        if (column > kIndent && column + 1 + end > kWidth) {
            out.append("\n").append(kIndent, ' ');
            column = kIndent;
        } else if (column > kIndent) {
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

void AppendRows(std::string& out, std::string_view title, std::span<const HelpRow> rows)
{
    out.append("\n").append(title).append(":\n");
    for (const HelpRow& row : rows)
        AppendRow(out, std::string(row.name), row.help);
}

} // namespace

std::string HelpText(const CommandRow& command)
{
    std::string out(command.help);
    out.append("\nUsage: ").append(command.name).append(" [OPTIONS] FILE...\n");
    if (command.task == Task::Draw)
        for (const CommandRow& other : Commands().subspan(1))
            out.append("       ")
                .append(other.name)
                .append(" [OPTIONS] FILE...    (see ")
                .append(other.name)
                .append(" --help)\n");
    out.append("\n");
    AppendRow(out, "FILE", command.fileHelp);
    out.append("\nOptions:\n");
    for (const OptionRow& row : command.options) {
        std::string name(row.names);
        if (!row.value.empty())
            name.append(" ").append(row.value);
        AppendRow(out, name, row.help);
    }
    out.append("\nMessages go to the standard error stream as FILE:LINE: text.\n");
    AppendRows(out, "Examples", command.examples);
    AppendRows(out, "Limits and faults", LimitTable());
    out.append("\nExit codes:\n");
    for (const ExitRow& row : ExitTable())
        AppendRow(out, std::to_string(static_cast<int>(row.code)), row.help);
    return out;
}

} // namespace plexorn
