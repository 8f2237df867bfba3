#include "support/TempFile.h"

#include <atomic>
#include <chrono>
#include <fstream>
#include <iterator>

TempFile::TempFile(std::string_view bytes)
{
    static std::atomic<int> number = 0;
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    m_path = std::filesystem::temp_directory_path() /
             ("plexorn-" + std::to_string(now) + "-" + std::to_string(++number) + ".dxf");
    std::ofstream file(m_path, std::ios::binary);
    file.exceptions(std::ios::badbit | std::ios::failbit); // a test without its file must not pass
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

TempFile::~TempFile()
{
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
}

std::string BytesOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
