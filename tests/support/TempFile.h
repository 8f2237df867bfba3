// A file for the length of a test.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// Holds the given bytes, under a name of its own, and is removed in the end.
class TempFile {
public:
    explicit TempFile(std::string_view bytes);
    ~TempFile();
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    const std::filesystem::path& Path() const { return m_path; }
    std::wstring WidePath() const { return m_path.wstring(); }

private:
    std::filesystem::path m_path;
};

// All bytes of a file; empty when it cannot be read.
std::string BytesOf(const std::filesystem::path& path);
