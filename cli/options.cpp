#include "options.h"

#include "exitcodes.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <string_view>

namespace plexorn {

namespace {

constexpr std::string_view Letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view HexDigits = "0123456789abcdefABCDEF";

bool ConsistsOf(std::string_view text, std::string_view characters)
{
    return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

bool IsHexColour(std::string_view text)
{
    if (!text.starts_with('#'))
        return false;
    text.remove_prefix(1);
    return ConsistsOf(text, HexDigits) &&
           (text.size() == 3 || text.size() == 4 || text.size() == 6 || text.size() == 8);
}

// rgb(...), hsl(...) and their like; what stands in the parentheses is the viewer's to judge.
bool IsColourFunction(std::string_view text)
{
    size_t parenthesis = text.find('(');
    if (parenthesis == std::string_view::npos || !text.ends_with(')'))
        return false;
    std::string_view inside = text.substr(parenthesis + 1, text.size() - parenthesis - 2);
    return ConsistsOf(text.substr(0, parenthesis), Letters) && ConsistsOf(inside, "0123456789.,%+-/ deg");
}

std::string CheckColour(const std::string& text)
{
    if (ConsistsOf(text, Letters) || IsHexColour(text) || IsColourFunction(text))
        return "";
    return "'" + text + "' is not a colour; give a name, #RRGGBB, rgb(R,G,B), or none";
}

std::string CheckNotEmpty(const std::string& text)
{
    return text.empty() ? "a file's name is empty" : "";
}

bool EndsInDxf(std::string_view path)
{
    constexpr std::string_view extension = ".dxf";
    auto sameLetter = [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b; };
    return path.size() > extension.size() &&
           std::equal(extension.begin(), extension.end(), path.end() - extension.size(),
                      [&](char b, char a) { return sameLetter(a, b); });
}

std::string DefaultOutput(const std::string& input)
{
    return (EndsInDxf(input) ? input.substr(0, input.size() - 4) : input) + ".svg";
}

constexpr const char* Footer = "Messages go to the standard error stream as FILE:LINE: text.\n"
                               "Exit codes: 0 drawn; 2 wrong usage; 3 the file cannot be read or the SVG "
                               "cannot be written;\n4 the file is not an ASCII DXF.";

} // namespace

std::variant<Options, int> ParseOptions(std::vector<std::string> arguments)
{
    Options options;
    std::string background = "#1e1e1e";
    CLI::App app("Draws an ASCII DXF file as an SVG picture.", "plexorn");
    // A path may begin with a slash on Windows too.
    app.allow_windows_style_options(false);
    app.footer(Footer);
    app.add_option("FILE", options.input, "The drawing, an ASCII DXF file")
        ->required()
        ->check(CheckNotEmpty, "", "");
    app.add_option("-o,--output", options.output, "The picture; FILE with .svg in place of .dxf by default")
        ->check(CheckNotEmpty, "", "");
    app.add_option("--background", background,
                   "The CSS colour behind the drawing, or none. Dark by default: most drawings are white")
        ->capture_default_str()
        ->check(CheckColour, "", "");
    app.add_flag("-q,--quiet", options.quiet, "Print errors only, no messages about the drawing");
    app.set_version_flag("--version", "plexorn " PLEXORN_VERSION);

    try {
        std::reverse(arguments.begin(), arguments.end());
        app.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        return app.exit(error, std::cout, std::cerr) == 0 ? ExitDrawn : ExitUsage;
    }
    if (options.output.empty())
        options.output = DefaultOutput(options.input);
    if (background != "none")
        options.background = background;
    return options;
}

} // namespace plexorn
