#include "prepare/write/LogStorage.h"

#include "base/Chunk.h"

#include <algorithm>
#include <utility>

namespace prepare {

namespace {

// Chunks grow, but stay small compared with what there is of them. The largest are of a size that the system
// takes back at once.
constexpr std::size_t kFirstChunk = std::size_t{1} << 12;
constexpr std::size_t kShare = 8;

} // namespace

LogStorage::~LogStorage()
{
    for (const Chunk& chunk : m_chunks)
        FreeChunk(chunk.bytes, chunk.size);
}

char* LogStorage::Room(std::size_t size)
{
    if (size > m_left) {
        const std::size_t room = std::max(std::clamp(m_held / kShare, kFirstChunk, kPreferredChunk), size);
        m_chunks.push_back({});
        m_chunks.back() = {AllocateChunk(room), room};
        m_held += room;
        m_next = static_cast<char*>(m_chunks.back().bytes);
        m_left = room;
    }
    m_left -= size;
    return std::exchange(m_next, m_next + size);
}

} // namespace prepare
