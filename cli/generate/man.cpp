#include "cli/generate/generate.h"

#include "cli/joined.h"

#include <algorithm>

namespace plexorn {

namespace {

// Text for the formatter, whose control characters stand as themselves.
std::string Escaped(std::string_view text)
{
    std::string out;
    for (char character : text) {
        if (character == '\\')
            out += "\\e";
        else if (character == '-')
            out += "\\-";
        else
            out.push_back(character);
    }
    // A line of these is taken for a request.
    return out.starts_with('.') || out.starts_with('\'') ? "\\&" + out : out;
}

// A paragraph of text, in lines that an editor shows whole.
std::string Filled(std::string_view text)
{
    constexpr size_t width = 72;
    std::string out, line;
    while (!text.empty()) {
        size_t end = std::min(text.find(' '), text.size());
        if (!line.empty() && line.size() + 1 + end > width) {
            out.append(Escaped(line)).append("\n");
            line.clear();
        }
        line.append(line.empty() ? "" : " ").append(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return out.append(Escaped(line)).append("\n");
}

void AddOptions(std::string& out, const CommandRow& command)
{
    for (const OptionRow& row : command.options) {
        std::string names = "\\fB" + Escaped(row.LongName()) + "\\fR";
        if (!row.ShortName().empty())
            names.insert(0, "\\fB" + Escaped(row.ShortName()) + "\\fR, ");
        if (!row.value.empty())
            names.append(" \\fI").append(Escaped(row.value)).append("\\fR");
        out.append(".TP\n").append(names).append("\n").append(Filled(Joined({row.help, "."})));
    }
}

constexpr std::string_view Files = "FILE is a drawing, an ASCII DXF file. A dash is the standard input, a "
                                   "folder stands for every .dxf file in it. A "
                                   "drawing called info is given as ./info.";

constexpr std::string_view Messages =
    "Messages about a drawing go to the standard error stream as "
    "FILE:LINE: text. The closing line of each drawing "
    "tells what was drawn, the size of the picture and where it was taken "
    "from, and which entities are not drawn. For "
    "several drawings a last line sums up. On a terminal names and "
    "failures are set off, unless the environment "
    "variable NO_COLOR is set and not empty. A picture is written whole or not at all: "
    "an older one stays until the new one is "
    "complete.";

// When the page was last changed; formatters expect it.
constexpr const char* Date = "2026-11-20";

constexpr std::string_view Examples =
    ".SH EXAMPLES\n"
    ".TP\n"
    "plexorn plan.dxf\n"
    "Draw plan.svg beside the drawing.\n"
    ".TP\n"
    "plexorn \\-r drawings/ \\-o pictures/\n"
    "Draw a tree of drawings into a tree of pictures.\n"
    ".TP\n"
    "find . \\-name '*.dxf' \\-print0 | plexorn \\-0 \\-\\-files\\-from \\-\n"
    "Draw what another program finds.\n"
    ".TP\n"
    "plexorn \\-\\-paper plan.dxf \\-o \\- | rsvg\\-convert \\-o plan.png\n"
    "Pass a picture on.\n"
    ".TP\n"
    "plexorn info plan.dxf\n"
    "See what the drawing holds and what of it is drawn.\n";

} // namespace

std::string ManualPage()
{
    std::string out = Joined({".TH PLEXORN 1 ", Date,
                              " \"Plexorn " PLEXORN_VERSION "\" \"User Commands\"\n"
                              ".SH NAME\nplexorn \\- draw DXF files as SVG pictures\n"
                              ".SH SYNOPSIS\n"});
    for (const CommandRow* command : {&DrawCommand(), &InfoCommand()})
        out.append(command == &DrawCommand() ? "" : ".br\n")
            .append(".B ")
            .append(command->name)
            .append("\n[\\fIOPTIONS\\fR] \\fIFILE\\fR...\n");
    out.append(".SH DESCRIPTION\n");
    for (const CommandRow* command : {&DrawCommand(), &InfoCommand()})
        out.append(".TP\n.B ").append(command->name).append("\n").append(Filled(command->help));
    out.append(".PP\n").append(Filled(Files));
    out.append(".SH OPTIONS\n");
    AddOptions(out, DrawCommand());
    out.append(".SH OPTIONS OF PLEXORN INFO\n");
    AddOptions(out, InfoCommand());
    out.append(".SH MESSAGES\n").append(Filled(Messages)).append(".SH EXIT STATUS\n");
    for (const ExitRow& row : ExitTable())
        out.append(".TP\n.B ")
            .append(std::to_string(row.code))
            .append("\n")
            .append(Filled(Joined({row.help, "."})));
    return out.append(Examples);
}

} // namespace plexorn
