// An interruption that waits until what was begun is undone.
#ifndef PLEXORN_CLI_INTERRUPT_H
#define PLEXORN_CLI_INTERRUPT_H

namespace plexorn {

// While it lives, Ctrl-C and a request to end do not end the process but are remembered; they end it when
// the last of these objects is destroyed, on whatever thread. A signal that the process ignores stays
// ignored.
class CInterruptGuard {
public:
    CInterruptGuard();
    ~CInterruptGuard();
    CInterruptGuard(const CInterruptGuard&) = delete;
    CInterruptGuard& operator=(const CInterruptGuard&) = delete;

    // Whether the process shall end.
    static bool IsInterrupted();
};

} // namespace plexorn

#endif
