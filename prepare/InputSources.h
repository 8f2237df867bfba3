// The inputs that the C interface takes.
#pragma once

#include "input/CDxfMemory.h"
#include "prepare/OpenInput.h"
#include "prepare/Prepare.h"
#include "prepare/PrepareDrawing.h"

#include <memory>
#include <string>
#include <string_view>

namespace prepare {

class MemoryInput final : public ReopenableSource {
public:
    explicit MemoryInput(std::string_view bytes) : m_bytes(bytes), m_source(bytes) {}

    CDxfSource& Rewound() override
    {
        m_source = CDxfMemory(m_bytes);
        return m_source;
    }
    std::uint64_t Size() const override { return m_bytes.size(); }

private:
    std::string_view m_bytes;
    CDxfMemory m_source;
};

// Bytes that a function gives, from a given offset on.
class FunctionInput final : public ReopenableSource, CDxfSource {
public:
    FunctionInput(PrepareReadFunction read, void* user) : m_read(read), m_user(user) {}

    CDxfSource& Rewound() override;

private:
    std::ptrdiff_t Read(char* bytes, std::size_t size) override;

    PrepareReadFunction m_read;
    void* m_user;
    std::uint64_t m_offset = 0;
};

// A file. One that cannot be read again from its front, such as a pipe, is kept in memory.
class FileInput final : public ReopenableSource, CDxfSource {
public:
    // Reading fails when the file cannot be opened.
    explicit FileInput(const char* path);

    CDxfSource& Rewound() override;
    std::uint64_t Size() const override { return m_size; }

private:
    struct Closer {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    std::ptrdiff_t Read(char* bytes, std::size_t size) override;
    void ReadWhole();

    std::unique_ptr<std::FILE, Closer> m_file;
    std::uint64_t m_size = 0;
    std::string m_bytes; // of what has no front to go back to
    CDxfMemory m_memory{{}};
    bool m_isKept = false;
};

} // namespace prepare
