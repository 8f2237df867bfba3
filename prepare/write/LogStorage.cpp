#include "prepare/write/LogStorage.h"

#include <algorithm>
#include <utility>

namespace prepare {

namespace {

// Chunks grow, but stay small compared with a large drawing.
constexpr std::size_t kFirstChunk = std::size_t{1} << 12;
constexpr std::size_t kLargestChunk = std::size_t{1} << 18;

} // namespace

char* LogStorage::Room(std::size_t size)
{
    if (size > m_left) {
        m_usual = std::clamp(2 * m_usual, kFirstChunk, kLargestChunk);
        const std::size_t room = std::max(m_usual, size);
        m_chunks.push_back(std::unique_ptr<char[]>(new char[room]));
        m_next = m_chunks.back().get();
        m_left = room;
    }
    m_left -= size;
    return std::exchange(m_next, m_next + size);
}

} // namespace prepare
