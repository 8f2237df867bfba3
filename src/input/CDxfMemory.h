// A drawing's bytes from memory.
#pragma once

#include "input/CDxfSource.h"

#include <cstddef>
#include <cstring>
#include <string_view>

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
