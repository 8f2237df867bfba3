#include "cli/files/Wildcards.h"

#include "base/Letters.h"
#include "base/Utf8.h"
#include "cli/system/Native.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace plexorn {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kWildcards = "*?";

// The bytes of the UTF-8 character that begins at that place.
std::size_t CharacterSize(std::string_view text, std::size_t at)
{
    std::size_t end = at + 1;
    while (end < text.size() && IsTrailByte(text[end]))
        ++end;
    return end - at;
}

// Goes back to the last * alone, as an earlier one could take no more than that one does.
bool Matches(std::string_view pattern, std::string_view name)
{
    std::size_t p = 0, n = 0, afterStar = std::string_view::npos, taken = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            afterStar = ++p;
            taken = n;
        } else if (p < pattern.size() && pattern[p] == '?') {
            ++p;
            n += CharacterSize(name, n);
        } else if (p < pattern.size() && SmallLetter(pattern[p]) == SmallLetter(name[n])) {
            ++p;
            ++n;
        } else if (afterStar != std::string_view::npos) {
            p = afterStar;
            taken += CharacterSize(name, taken);
            n = taken;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

void AddMatches(const fs::path& folder, const std::string& pattern, std::vector<fs::path>& found)
{
    std::error_code error;
    fs::directory_iterator entries(folder.empty() ? fs::path(".") : folder, error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        const fs::path name = entries->path().filename();
        if (Matches(pattern, ArgumentFromPath(name)))
            found.push_back(folder / name);
    }
}

// What the folders hold under that name, which may have wildcards.
std::vector<fs::path> Below(const std::vector<fs::path>& folders, const fs::path& name)
{
    std::vector<fs::path> found;
    const std::string pattern = ArgumentFromPath(name);
    const bool isPattern = pattern.find_first_of(kWildcards) != std::string_view::npos;
    for (const fs::path& folder : folders) {
        std::error_code ignored;
        if (isPattern)
            AddMatches(folder, pattern, found);
        else if (name.empty() ? fs::is_directory(folder, ignored) : fs::exists(folder / name, ignored))
            found.push_back(folder / name);
    }
    return found;
}

} // namespace

bool HasWildcards(const std::string& name)
{
    const bool isVerbatim = name.starts_with("\\\\?\\") || name.starts_with("//?/");
    return !isVerbatim && name.find_first_of(kWildcards) != std::string_view::npos;
}

std::vector<std::string> ExpandWildcards(const std::string& name)
{
    const fs::path path = PathFromArgument(name);
    std::error_code ignored;
    if (!HasWildcards(name) || fs::exists(fs::symlink_status(path, ignored)))
        return {name};
    std::vector<fs::path> found = {path.root_path()};
    for (const fs::path& part : path.relative_path())
        found = Below(found, part);
    if (found.empty())
        return {name};
    std::vector<std::string> names;
    names.reserve(found.size());
    for (const fs::path& match : found)
        names.push_back(ArgumentFromPath(match));
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace plexorn
