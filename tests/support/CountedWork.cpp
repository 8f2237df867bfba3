#include "support/CountedWork.h"

#include <cstdlib>
#include <fstream>

#if defined(__GNUC__)
#define PLEXORN_NEVER_INLINE __attribute__((noinline))
#else
#define PLEXORN_NEVER_INLINE
#endif

// The counter knows this function by its name: it counts from its begin to its end.
extern "C" PLEXORN_NEVER_INLINE void PlexornCountedWork(const std::function<std::size_t()>& work,
                                                        std::size_t& steps)
{
    steps = work();
}

std::size_t RunCounted(std::string_view label, std::size_t size, const std::function<std::size_t()>& work)
{
    std::size_t steps = 0;
    PlexornCountedWork(work, steps);
    if (const char* const path = std::getenv("PLEXORN_WORK"))
        std::ofstream(path, std::ios::app) << label << '\t' << size << '\t' << steps << '\n';
    return steps;
}
