// Memory that runs out on request.
#pragma once

#include <cstddef>
#include <cstdint>

// While one of these lives, it counts the allocations of its thread, and one of them fails: the nth, or the
// nth and all after it. Every operator new of the test program is ours for that; other threads, and what is
// done within a Pause, are not touched.
class FailingMemory {
public:
    enum class Which { Nth, NthAndLater };

    // n is 1 for the first allocation, 0 for none.
    explicit FailingMemory(std::size_t n, Which which = Which::Nth);
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    bool HasFailed() const { return m_hasFailed; }
    std::size_t Allocations() const { return m_count; }

    // What was allocated since and not freed, and the most bytes that there were at once.
    std::size_t Live() const { return m_live; }

    std::size_t MostBytes() const { return m_mostBytes; }

    // Keeps a test's own allocations out of it.
    class Pause {
    public:
        Pause();
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        FailingMemory* m_paused;
    };

    // Takes the blocks from other functions than malloc and free, also those of this process that are there
    // already: free must know them from its own.
    static void UseBlocksOf(void* (*allocate)(std::size_t), void (*release)(void*));

    // For operator new and delete: what is asked of the current one, and which one it is, 0 for none.
    static bool Fails();
    static std::uint64_t Allocated(std::size_t size);
    static void Freed(std::uint64_t owner, std::size_t size);

private:
    std::size_t m_n;
    Which m_which;
    const std::uint64_t m_number; // no other has it
    bool m_hasFailed = false;
    std::size_t m_count = 0;
    std::size_t m_live = 0;
    std::size_t m_bytes = 0;
    std::size_t m_mostBytes = 0;
};
