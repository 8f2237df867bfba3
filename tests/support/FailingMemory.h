// Memory that runs out on request.
#pragma once

#include <cstddef>

// While one of these lives, it counts the allocations of its thread, and one of them fails: the nth, or the
// nth and all behind it. Every operator new of the test program is ours for that; other threads, and what is
// done within a Pause, are not touched.
class FailingMemory {
public:
    enum class WHICH { Nth, NthAndLater };

    // n is 1 for the first allocation, 0 for none.
    explicit FailingMemory(std::size_t n, WHICH which = WHICH::Nth);
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    bool HasFailed() const { return m_hasFailed; }
    std::size_t Allocations() const { return m_count; }

    // What was allocated since and not freed.
    std::size_t Live() const { return m_liveCount; }

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

    // For operator new and delete.
    static bool Fails();
    static void Allocated(void* block);
    static void Freed(void* block);

private:
    static constexpr std::size_t kMostLive = 4096;

    std::size_t m_n;
    WHICH m_which;
    bool m_hasFailed = false;
    std::size_t m_count = 0;
    std::size_t m_liveCount = 0;
    void* m_live[kMostLive];
};
