#include "cli/files/Leftovers.h"

#include "cli/system/Native.h"

#include <charconv>
#include <cstdint>
#include <mutex>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <system_error>

namespace plexorn {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kStart = ".plexorn-";
constexpr std::string_view kEnd = ".tmp";

// The process that a temporary file is named after; 0 for a name of another form.
unsigned long ProcessOf(std::string_view name)
{
    if (!name.starts_with(kStart) || !name.ends_with(kEnd))
        return 0;
    name.remove_prefix(kStart.size());
    unsigned long process = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), process);
    return error == std::errc() && *end == '-' ? process : 0;
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
    std::random_device device;
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string name = std::string(kStart).append(std::to_string(ProcessNumber())).append("-");
    for (int half = 0; half < 2; ++half) {
        std::uint32_t bits = device();
        for (int digit = 0; digit < 8; ++digit, bits >>= 4)
            name += kDigits[bits & 15];
    }
    return name.append(kEnd);
}

void RemoveLeftovers(const fs::path& folder)
{
    if (!IsFirstCall(folder))
        return;
    std::error_code error;
    fs::directory_iterator place(folder.empty() ? "." : folder, error);
    for (; !error && place != fs::directory_iterator(); place.increment(error)) {
        const unsigned long process = ProcessOf(ArgumentFromPath(place->path().filename()));
        if (process != 0 && process != ProcessNumber() && !IsRunning(process))
            RemoveUnlessOpen(place->path());
    }
}

} // namespace plexorn
