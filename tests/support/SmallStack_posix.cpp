#include "support/SmallStack.h"

#include <pthread.h>

namespace {

void* Run(void* work)
{
    (*static_cast<const std::function<void()>*>(work))();
    return nullptr;
}

} // namespace

bool RunOnSmallStack(const std::function<void()>& work, std::size_t stack)
{
    pthread_attr_t attributes;
    if (pthread_attr_init(&attributes) != 0)
        return false;
    std::function<void()> copy = work;
    pthread_t thread;
    const bool isStarted = pthread_attr_setstacksize(&attributes, stack) == 0 &&
                           pthread_create(&thread, &attributes, Run, &copy) == 0;
    pthread_attr_destroy(&attributes);
    return isStarted && pthread_join(thread, nullptr) == 0;
}
