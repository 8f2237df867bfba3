// An interruption that waits until what was begun is undone.
#ifndef PLEXORN_CLI_INTERRUPT_H
#define PLEXORN_CLI_INTERRUPT_H

#include <array>

namespace plexorn {

// While it lives, Ctrl-C and a request to end do not end the process but are remembered; they end it when
// this object is destroyed. A signal that the process ignores stays ignored. One object at a time.
class CInterruptGuard {
public:
    CInterruptGuard();
    ~CInterruptGuard();
    CInterruptGuard(const CInterruptGuard&) = delete;
    CInterruptGuard& operator=(const CInterruptGuard&) = delete;

    // Whether the process shall end.
    bool IsInterrupted() const;

private:
    using Handler = void (*)(int);

    static constexpr int MostSignals = 4;
    std::array<Handler, MostSignals> m_formerHandlers{};
};

} // namespace plexorn

#endif
