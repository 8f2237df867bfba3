#include "bench/PeakMemory.h"

#include "base/Api_windows.h"

#include <psapi.h>

std::size_t PeakMemory()
{
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
    return counters.PeakWorkingSetSize;
}
