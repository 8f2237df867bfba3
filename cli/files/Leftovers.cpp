#include "cli/files/Leftovers.h"

#include "base/Numbers.h"
#include "cli/system/Native.h"

#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <system_error>

namespace plexorn {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kStart = ".plexorn-";
constexpr std::string_view kEnd = ".tmp";
constexpr std::size_t kMostDigits = 9; // of a process's number

// The process that a temporary file is named after; 0 for a name of another form.
unsigned long ProcessOf(std::string_view name)
{
    if (!name.starts_with(kStart) || !name.ends_with(kEnd))
        return 0;
    name.remove_prefix(kStart.size());
    const std::string_view digits = name.substr(0, name.find('-'));
    if (digits.size() == name.size() || digits.empty() || digits.size() > kMostDigits ||
        digits.find_first_not_of("0123456789") != std::string_view::npos)
        return 0;
    return static_cast<unsigned long>(ParseWholeReal(digits).value_or(0));
}

bool IsFirstCall(const fs::path& folder)
{
    static std::mutex mutex;
    static std::set<fs::path> known;
    const std::lock_guard lock(mutex);
    return known.insert(folder).second;
}

} // namespace

fs::path TemporaryName()
{
    char digits[16];
    FormatHex(RandomNumber(), sizeof(digits), digits);
    std::string name = std::string(kStart).append(std::to_string(ProcessNumber())).append("-");
    name.append(digits, sizeof(digits));
    return name.append(kEnd);
}

void RemoveLeftovers(const fs::path& folder)
{
    if (!IsFirstCall(folder))
        return;
    [[maybe_unused]] const std::error_code ignored = ForEachName(folder, [&](const fs::path& name) {
        const unsigned long process = ProcessOf(ArgumentFromPath(name));
        if (process != 0 && process != ProcessNumber() && !IsRunning(process))
            RemoveUnlessOpen(folder / name);
    });
}

} // namespace plexorn
