#include "bench/PeakMemory.h"

#include <sys/resource.h>

std::size_t PeakMemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::size_t>(usage.ru_maxrss) * 1024; // Linux counts in kilobytes
}
