// Room that all logs of a drawing share.
#pragma once

#include <cstddef>
#include <vector>

namespace prepare {

// Gives room, which stays where it is, and keeps it as long as it lives. Most blocks of a drawing are small:
// room of their own would cost more than what is in it. CDxfArena begins each piece at a multiple of eight; a
// log grows byte by byte, and needs its pieces right after each other.
class LogStorage {
public:
    LogStorage() = default;
    LogStorage(const LogStorage&) = delete;
    LogStorage& operator=(const LogStorage&) = delete;
    ~LogStorage();

    // What is asked for next comes right after it, or elsewhere. Throws std::bad_alloc.
    char* Room(std::size_t size);
    // Of the room that was asked for last, only that before end is needed.
    void EndAt(char* end)
    {
        m_left += static_cast<std::size_t>(m_next - end);
        m_next = end;
    }

private:
    struct Chunk {
        void* bytes = nullptr;
        std::size_t size = 0;
    };

    std::vector<Chunk> m_chunks;
    std::size_t m_held = 0; // in all of them
    char* m_next = nullptr;
    std::size_t m_left = 0; // after m_next
};

} // namespace prepare
