// How often something was met.
#pragma once

#include <cstdint>

// A count, and where the first one was.
struct Tally {
    std::uint64_t count = 0;
    std::uint64_t firstLine = 0; // of the file; 0: none

    void Add(std::uint64_t line, std::uint64_t times = 1)
    {
        if (count == 0)
            firstLine = line;
        count += times;
    }
};
