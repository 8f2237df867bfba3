// A drawing's bytes from a file that is opened by its name.
#pragma once

#include "input/CDxfSource.h"

#include <cstddef>
#include <cstdint>

// A file, open for reading and shared with other readers and writers. It is not open when the path names a
// directory, a device or nothing that can be read.
class CDxfFile final : public CDxfSource {
public:
    // path is in the system's ANSI code page, zero-terminated.
    explicit CDxfFile(const char* path);
    ~CDxfFile();
    CDxfFile(const CDxfFile&) = delete;
    CDxfFile& operator=(const CDxfFile&) = delete;

    bool IsOpen() const;
    std::ptrdiff_t Read(char* bytes, std::size_t size) override;

private:
    std::intptr_t m_file; // a file descriptor or a HANDLE; -1 when not open
};
