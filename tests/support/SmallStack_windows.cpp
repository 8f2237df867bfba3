#include "support/SmallStack.h"

#include "base/Api_windows.h"

namespace {

DWORD WINAPI Run(void* work)
{
    (*static_cast<const std::function<void()>*>(work))();
    return 0;
}

} // namespace

bool RunOnSmallStack(const std::function<void()>& work, std::size_t stack)
{
    std::function<void()> copy = work;
    const HANDLE thread =
        CreateThread(nullptr, stack, Run, &copy, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
    if (thread == nullptr)
        return false;
    const bool isDone = WaitForSingleObject(thread, INFINITE) == WAIT_OBJECT_0;
    CloseHandle(thread);
    return isDone;
}
