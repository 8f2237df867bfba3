#include "interrupt.h"

#include <atomic>
#include <csignal>
#include <iterator>
#include <mutex>

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

using Handler = void (*)(int);

// Windows calls a handler on a thread of its own.
std::atomic<int> received = 0;
static_assert(std::atomic<int>::is_always_lock_free);

std::mutex mutex;
int guards = 0;
Handler formerHandlers[std::size(Signals)];

extern "C" void RememberSignal(int signal)
{
    received = signal;
    // Windows takes a handler away when it calls it, and a second Ctrl-C would end the process at once.
    std::signal(signal, RememberSignal);
}

} // namespace

CInterruptGuard::CInterruptGuard()
{
    std::lock_guard lock(mutex);
    if (guards++ > 0)
        return;
    for (size_t i = 0; i < std::size(Signals); ++i) {
        formerHandlers[i] = std::signal(Signals[i], RememberSignal);
        if (formerHandlers[i] == SIG_IGN)
            std::signal(Signals[i], SIG_IGN);
    }
}

CInterruptGuard::~CInterruptGuard()
{
    std::lock_guard lock(mutex);
    if (--guards > 0)
        return;
    for (size_t i = 0; i < std::size(Signals); ++i)
        if (formerHandlers[i] != SIG_ERR)
            std::signal(Signals[i], formerHandlers[i]);
    if (int signal = received.exchange(0))
        std::raise(signal);
}

bool CInterruptGuard::IsInterrupted()
{
    return received != 0;
}

} // namespace plexorn
