// The most memory that this process has had at once.
#pragma once

#include <cstddef>

// In bytes, as the system counts what is resident.
std::size_t PeakMemory();
