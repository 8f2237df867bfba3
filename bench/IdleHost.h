// A host that does nothing but count.
#pragma once

#include <cstddef>

// The number of host calls since the last time that it was asked for.
std::size_t TakeIdleHostCalls();
