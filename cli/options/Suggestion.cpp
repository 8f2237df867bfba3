#include "cli/options/Suggestion.h"

#include "base/Letters.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>
#include <vector>

namespace plexorn {

namespace {

constexpr std::size_t kMostDifference = 3;

// How far a word may be from the one that is meant: a letter in three, and not more than three.
std::size_t MostDistance(std::string_view word)
{
    return std::clamp<std::size_t>(word.size() / 3, 1, kMostDifference);
}

std::string_view LongName(const OptionRow& row)
{
    const std::size_t at = row.names.find("--");
    return row.names.substr(std::min(at, row.names.size()));
}

const OptionRow* FindOption(const CommandRow& command, std::string_view name)
{
    const auto found = std::find_if(command.options.begin(), command.options.end(),
                                    [&](const OptionRow& row) { return LongName(row) == name; });
    return found == command.options.end() ? nullptr : &*found;
}

// The only option whose name begins with that; null when there is none, or more than one.
const OptionRow* OnlyOneThatBegins(const CommandRow& command, std::string_view name)
{
    const auto begins = [&](const OptionRow& row) { return LongName(row).starts_with(name); };
    const auto first = std::find_if(command.options.begin(), command.options.end(), begins);
    if (name.size() <= 2 || first == command.options.end() ||
        std::any_of(first + 1, command.options.end(), begins))
        return nullptr;
    return &*first;
}

} // namespace

std::size_t EditDistance(std::string_view a, std::string_view b)
{
    if (std::max(a.size(), b.size()) - std::min(a.size(), b.size()) > kMostDifference)
        return std::max(a.size(), b.size());
    std::vector<std::size_t> last, row(b.size() + 1), next(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t(0));
    for (std::size_t i = 1; i <= a.size(); ++i) {
        next[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            next[j] = std::min({row[j] + 1, next[j - 1] + 1, row[j - 1] + (a[i - 1] != b[j - 1])});
            const bool isExchange = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
            if (isExchange)
                next[j] = std::min(next[j], last[j - 2] + 1);
        }
        last = std::exchange(row, next);
    }
    return row.back();
}

std::string SuggestedOption(const CommandRow& command, std::string_view argument)
{
    const std::string_view written = argument.substr(0, argument.find('='));
    if (!written.starts_with('-') || written.size() == 1)
        return "";
    if (written == "-v" || written == "-V")
        return written == "-v" ? "--verbose" : "--version";
    std::string name = std::string(written.starts_with("--") ? 0 : 1, '-').append(written);
    if (FindOption(command, name))
        return name;
    for (const CommandRow& other : Commands())
        if (other.task != command.task && FindOption(other, name))
            return std::string(other.name).append(" ").append(name);
    if (const OptionRow* const only = OnlyOneThatBegins(command, name))
        return std::string(LongName(*only));
    std::string_view nearest;
    std::size_t least = MostDistance(std::string_view(name).substr(2)) + 1;
    for (const OptionRow& row : command.options) {
        const std::size_t distance = EditDistance(name, LongName(row));
        if (distance < least) {
            least = distance;
            nearest = LongName(row);
        }
    }
    return std::string(nearest);
}

std::string SuggestedCommand(std::string_view word)
{
    constexpr std::pair<std::string_view, std::string_view> kMeant[] = {{"info", "plexorn info"},
                                                                        {"prepare", "plexorn prepare"},
                                                                        {"help", "plexorn --help"},
                                                                        {"version", "plexorn --version"}};
    constexpr std::size_t kLeastOfBegin = 3;
    const std::string small = InSmallLetters(word);
    for (const auto& [name, meant] : kMeant)
        if (EditDistance(small, name) <= MostDistance(name) ||
            (small.size() >= kLeastOfBegin && name.starts_with(small)))
            return std::string(meant);
    return "";
}

} // namespace plexorn
