#include "cli/files/Wildcards.h"

#include "base/NamePatterns.h"
#include "cli/system/Native.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace plexorn {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kWildcards = "*?";

void AddMatches(const fs::path& folder, const std::string& pattern, std::vector<fs::path>& found)
{
    std::error_code error;
    fs::directory_iterator entries(folder.empty() ? fs::path(".") : folder, error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        const fs::path name = entries->path().filename();
        if (MatchesPattern(ArgumentFromPath(name), pattern, Wildcards::QuestionMark))
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
