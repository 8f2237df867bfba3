// Interruptions that wait until unfinished files are removed.
#pragma once

namespace plexorn {

// While it lives, Ctrl-C and a request to end do not end the process but are remembered; they end it when
// the last of these objects is destroyed, on any thread. A signal that the process ignores stays
// ignored.
class InterruptGuard {
public:
    InterruptGuard();
    ~InterruptGuard();
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;

    // Whether the process should end.
    static bool IsInterrupted();
};

// From now on the process says that it was stopped when Ctrl-C or a request to end ends it. Call it before
// any InterruptGuard is made.
void SayWhenStopped();

} // namespace plexorn
