// A source whose manner an input chooses.
#pragma once

#include "input/CDxfSource.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

// How a source gives its bytes.
struct FuzzReads {
    std::uint8_t most = 0;   // bytes a read; 0 for as many as are asked for
    bool varies = false;     // from one to most bytes a read, the same for the same bytes
    bool failsAtEnd = false; // where the end would be, reading fails for good
};

// Gives the bytes of before and then those of bytes, as one sequence.
class FuzzSource final : public CDxfSource {
public:
    FuzzSource(std::string_view bytes, FuzzReads reads, std::string_view before = {})
        : m_before(before), m_bytes(bytes), m_reads(reads)
    {
    }

    std::ptrdiff_t Read(char* bytes, std::size_t size) override
    {
        size = std::min(size, Most());
        const std::size_t first = Take(m_before, bytes, size);
        const std::size_t count = first + Take(m_bytes, bytes + first, size - first);
        return count == 0 && m_reads.failsAtEnd ? -1 : static_cast<std::ptrdiff_t>(count);
    }

private:
    std::size_t Most()
    {
        if (m_reads.most == 0)
            return static_cast<std::size_t>(-1);
        if (!m_reads.varies)
            return m_reads.most;
        m_state = m_state * 48271 % 2147483647; // a minimal standard generator
        return 1 + m_state % m_reads.most;
    }

    static std::size_t Take(std::string_view& from, char* bytes, std::size_t size)
    {
        const std::size_t count = std::min(from.size(), size);
        if (count != 0)
            std::memcpy(bytes, from.data(), count);
        from.remove_prefix(count);
        return count;
    }

    std::string_view m_before;
    std::string_view m_bytes;
    FuzzReads m_reads;
    std::uint64_t m_state = 1;
};
