// Sources that give their bytes as slow, odd or failing files do.
#pragma once

#include "input/CDxfMemory.h"
#include "input/CDxfSource.h"

#include <algorithm>
#include <cstddef>
#include <random>
#include <string_view>

// Gives at most so many bytes a read.
class ShortReads final : public CDxfSource {
public:
    ShortReads(std::string_view bytes, std::size_t most) : m_memory(bytes), m_most(most) {}

    std::ptrdiff_t Read(char* bytes, std::size_t size) override
    {
        return m_memory.Read(bytes, std::min(size, m_most));
    }

private:
    CDxfMemory m_memory;
    std::size_t m_most;
};

// Gives from one to so many bytes a read, at random; the same for the same seed.
class RandomReads final : public CDxfSource {
public:
    RandomReads(std::string_view bytes, std::size_t most, unsigned seed)
        : m_memory(bytes), m_most(most), m_random(seed)
    {
    }

    std::ptrdiff_t Read(char* bytes, std::size_t size) override
    {
        return m_memory.Read(bytes, std::min<std::size_t>(size, 1 + m_random() % m_most));
    }

private:
    CDxfMemory m_memory;
    std::size_t m_most;
    std::minstd_rand m_random;
};

// Gives its bytes and then, where a file would end, fails for good.
class FailingReads final : public CDxfSource {
public:
    explicit FailingReads(std::string_view bytes) : m_memory(bytes) {}

    std::ptrdiff_t Read(char* bytes, std::size_t size) override
    {
        const std::ptrdiff_t count = m_memory.Read(bytes, size);
        return count == 0 ? -1 : count;
    }

private:
    CDxfMemory m_memory;
};
