// Room that all logs of a drawing share.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace prepare {

// Gives room, which stays where it is, and keeps it as long as it lives. Most blocks of a drawing are small:
// room of their own would cost more than what is in it. CDxfArena begins each piece at a multiple of eight; a
// log grows byte by byte, and needs its pieces right after each other.
class LogStorage {
public:
    // What is asked for next comes right after it, or elsewhere. Throws std::bad_alloc.
    char* Room(std::size_t size);

private:
    std::vector<std::unique_ptr<char[]>> m_chunks;
    std::size_t m_usual = 0; // the size of the last chunk, unless it had to be larger
    char* m_next = nullptr;
    std::size_t m_left = 0; // after m_next
};

} // namespace prepare
