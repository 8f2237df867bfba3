// Where the bytes of a drawing come from.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

// A sequence of bytes that is read once, from front to end.
class CDxfSource {
public:
    // Reads up to size bytes, at least one unless the end is reached. Returns the number read, 0 at the end
    // of the file, a negative number when reading failed. Does not throw.
    virtual std::ptrdiff_t Read(char* bytes, std::size_t size) = 0;

protected:
    ~CDxfSource() = default;
};

// Bytes in memory, which stay the caller's.
class CDxfMemory final : public CDxfSource {
public:
    explicit CDxfMemory(std::string_view bytes) : m_rest(bytes) {}

    std::ptrdiff_t Read(char* bytes, std::size_t size) override
    {
        const std::size_t count = m_rest.size() < size ? m_rest.size() : size;
        if (count != 0)
            std::memcpy(bytes, m_rest.data(), count);
        m_rest.remove_prefix(count);
        return static_cast<std::ptrdiff_t>(count);
    }

private:
    std::string_view m_rest;
};

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
