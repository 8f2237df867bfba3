// A drawing's bytes out of an open file.
#pragma once

#include "input/CDxfSource.h"

#include <cstddef>
#include <cstdio>

namespace plexorn {

// Reads a file from where it is to its end; the caller closes it.
class FileSource final : public CDxfSource {
public:
    explicit FileSource(std::FILE* file) : m_file(file) {}

    std::ptrdiff_t Read(char* bytes, std::size_t size) override
    {
        const std::size_t count = std::fread(bytes, 1, size, m_file);
        return count == 0 && std::ferror(m_file) != 0 ? -1 : static_cast<std::ptrdiff_t>(count);
    }

private:
    std::FILE* m_file;
};

} // namespace plexorn
