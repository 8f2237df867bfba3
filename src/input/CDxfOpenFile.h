// A drawing's bytes from an open file.
#pragma once

#include "input/CDxfSource.h"

#include <cerrno>
#include <cstddef>
#include <cstdio>

// Reads a file from where it is to its end; the caller closes it.
class CDxfOpenFile final : public CDxfSource {
public:
    explicit CDxfOpenFile(std::FILE* file) : m_file(file) {}

    std::ptrdiff_t Read(char* bytes, std::size_t size) override
    {
        errno = 0;
        const std::size_t count = std::fread(bytes, 1, size, m_file);
        if (std::ferror(m_file) != 0)
            m_error = errno != 0 ? errno : EIO;
        return count == 0 && m_error != 0 ? -1 : static_cast<std::ptrdiff_t>(count);
    }

    // errno of a failed read, 0 without a failure.
    int Error() const { return m_error; }

private:
    std::FILE* m_file;
    int m_error = 0;
};
