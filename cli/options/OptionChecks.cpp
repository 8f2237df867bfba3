#include "cli/options/OptionChecks.h"

#include "base/Letters.h"
#include "cli/contents/Units.h"
#include "cli/options/Options.h"
#include "cli/options/PercentageOf.h"
#include "cli/options/ToleranceOf.h"
#include "prepare/drawing/Encoding.h"

#include <string_view>

namespace plexorn {

namespace {

constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view kHexDigits = "0123456789abcdefABCDEF";
constexpr std::string_view kDigits = kHexDigits.substr(0, 10);

bool ConsistsOf(std::string_view text, std::string_view characters)
{
    return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

bool IsHexColour(std::string_view text)
{
    if (!text.starts_with('#'))
        return false;
    text.remove_prefix(1);
    return ConsistsOf(text, kHexDigits) &&
           (text.size() == 3 || text.size() == 4 || text.size() == 6 || text.size() == 8);
}

// What a picture must not hold: it would be fetched.
bool IsFetched(std::string_view function)
{
    return AreSameLetters(function, "url");
}

// rgb(...), hsl(...) and their like; what is in the parentheses is for the viewer to judge.
bool IsColourFunction(std::string_view text)
{
    const std::size_t parenthesis = text.find('(');
    if (parenthesis == std::string_view::npos || !text.ends_with(')'))
        return false;
    const std::string_view inside = text.substr(parenthesis + 1, text.size() - parenthesis - 2);
    const std::string_view function = text.substr(0, parenthesis);
    return ConsistsOf(function, kLetters) && !IsFetched(function) &&
           ConsistsOf(inside, "0123456789.,%+-/ deg");
}

// Nine digits fit every size_t.
bool IsCount(std::string_view text)
{
    return ConsistsOf(text, kDigits) && text.size() <= 9;
}

} // namespace

std::string CheckNotEmpty(const std::string& text)
{
    return text.empty() ? "a file's name is empty" : "";
}

std::string CheckColour(const std::string& text)
{
    if (ConsistsOf(text, kLetters) || IsHexColour(text) || IsColourFunction(text))
        return "";
    return "'" + text + "' is not a colour; give a name, #RRGGBB, rgb(R,G,B), or none";
}

std::string CheckUnits(const std::string& text)
{
    if (text == "header" || text == "guess" || text == "none" || FindUnit(text))
        return "";
    return "'" + text + "' is not a unit; give header, guess, none, or one of " + UnitNames();
}

std::string CheckMessageFormat(const std::string& text)
{
    return text == "text" || text == "json" ? "" : "'" + text + "' is no form of messages; give text or json";
}

std::string CheckScale(const std::string& text)
{
    const std::string_view view = text;
    const bool isFine = view.starts_with(kScaleStart) && IsCount(view.substr(kScaleStart.size())) &&
                        view.find_first_not_of('0', kScaleStart.size()) != std::string_view::npos;
    return isFine ? "" : "'" + text + "' is not a scale; give 1:N, such as 1:50";
}

std::string CheckFit(const std::string& text)
{
    return text == "all" || text == "most" ? "" : "'" + text + "' cannot be fitted; give all or most";
}

std::string CheckJobs(const std::string& text)
{
    const bool isFine = IsCount(text) && text.size() <= 3 && text.find_first_not_of('0') != std::string::npos;
    return isFine ? "" : "'" + text + "' is no number of drawings at a time; give 1 to 999";
}

std::string CheckPercentage(const std::string& text)
{
    return PercentageOf(text) ? "" : "'" + text + "' is not a percentage; give 0 to 100, as in 95%";
}

std::string CheckCount(const std::string& text)
{
    return IsCount(text) ? "" : "'" + text + "' is not a number of messages";
}

std::string CheckReader(const std::string& text)
{
    return text == "module" || text == "standard"
               ? ""
               : "'" + text + "' is no reader of drawings; give module or standard";
}

std::string CheckLayers(const std::string& text)
{
    return text == "shown" || text == "all" ? "" : "'" + text + "' are no layers; give shown or all";
}

std::string CheckTolerance(const std::string& text)
{
    return ToleranceOf(text) ? "" : "'" + text + "' is no tolerance; give a length above 0, such as 0.01";
}

std::string CheckLayersAs(const std::string& text)
{
    return text == "groups" || text == "inkscape"
               ? ""
               : "'" + text + "' is no form of layers; give groups or inkscape";
}

std::string CheckFill(const std::string& text)
{
    return text == "filled" || text == "outline" ? ""
                                                 : "'" + text + "' is no way to fill; give filled or outline";
}

std::string CheckLayout(const std::string& text)
{
    return text.empty() ? "a layout's name is empty" : "";
}

std::string CheckEncoding(const std::string& text)
{
    return prepare::IsEncoding(text)
               ? ""
               : "'" + text + "' is not an encoding; give a name such as UTF-8, ANSI_1252 or SHIFT_JIS";
}

} // namespace plexorn
