#include "interrupt.h"

#include <atomic>
#include <csignal>
#include <iterator>

namespace plexorn {

namespace {

constexpr int Signals[] = {
    SIGINT,
    SIGTERM,
#ifdef SIGHUP
    SIGHUP,
#endif
#ifdef SIGBREAK
    SIGBREAK,
#endif
};

// Windows calls a handler on a thread of its own.
std::atomic<int> received = 0;
static_assert(std::atomic<int>::is_always_lock_free);

extern "C" void RememberSignal(int signal)
{
    received = signal;
}

} // namespace

CInterruptGuard::CInterruptGuard()
{
    static_assert(std::size(Signals) <= MostSignals);
    for (size_t i = 0; i < std::size(Signals); ++i) {
        m_formerHandlers[i] = std::signal(Signals[i], RememberSignal);
        if (m_formerHandlers[i] == SIG_IGN)
            std::signal(Signals[i], SIG_IGN);
    }
}

CInterruptGuard::~CInterruptGuard()
{
    for (size_t i = 0; i < std::size(Signals); ++i)
        if (m_formerHandlers[i] != SIG_ERR)
            std::signal(Signals[i], m_formerHandlers[i]);
    if (int signal = received.exchange(0))
        std::raise(signal);
}

bool CInterruptGuard::IsInterrupted() const
{
    return received != 0;
}

} // namespace plexorn
