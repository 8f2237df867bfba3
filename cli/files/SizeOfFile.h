// How large a file is.
#pragma once

#include <cstdint>
#include <filesystem>
#include <system_error>

namespace plexorn {

// In bytes; 0 when the file has no size, or none that can be told.
inline std::uint64_t SizeOfFile(const std::filesystem::path& path)
{
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    return error ? 0 : size;
}

} // namespace plexorn
