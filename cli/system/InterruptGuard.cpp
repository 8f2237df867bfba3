#include "cli/system/InterruptGuard.h"

#include "cli/system/Native.h"

#include <atomic>
#include <csignal>
#include <cstdio>
#include <iterator>
#include <mutex>

namespace plexorn {

namespace {

constexpr int kSignals[] = {
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
Handler formerHandlers[std::size(kSignals)];

extern "C" void RememberSignal(int signal)
{
    received = signal;
    // Windows takes a handler away when it calls it, and a second Ctrl-C would end the process at once.
    std::signal(signal, RememberSignal);
}

// A terminal shows the keys that were pressed, or how far the drawings are.
bool beginsOnNewLine = false;

extern "C" void SayAndEnd(int signal)
{
    if (beginsOnNewLine)
        PutOutNow("\n");
    PutOutNow("plexorn: stopped before it was done\n");
    EndBySignal(signal);
}

} // namespace

void SayWhenStopped()
{
    beginsOnNewLine = IsTerminal(stderr);
    for (const int signal : kSignals)
        if (std::signal(signal, SayAndEnd) == SIG_IGN)
            std::signal(signal, SIG_IGN);
}

InterruptGuard::InterruptGuard()
{
    const std::lock_guard lock(mutex);
    if (guards++ > 0)
        return;
    for (std::size_t i = 0; i < std::size(kSignals); ++i) {
        formerHandlers[i] = std::signal(kSignals[i], RememberSignal);
        if (formerHandlers[i] == SIG_IGN)
            std::signal(kSignals[i], SIG_IGN);
    }
}

InterruptGuard::~InterruptGuard()
{
    const std::lock_guard lock(mutex);
    if (--guards > 0)
        return;
    for (std::size_t i = 0; i < std::size(kSignals); ++i)
        if (formerHandlers[i] != SIG_ERR)
            std::signal(kSignals[i], formerHandlers[i]);
    if (const int signal = received.exchange(0))
        std::raise(signal);
}

bool InterruptGuard::IsInterrupted()
{
    return received != 0;
}

} // namespace plexorn
