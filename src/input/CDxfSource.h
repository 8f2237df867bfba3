// Where the bytes of a drawing come from.
#pragma once

#include <cstddef>

// A sequence of bytes that is read once, from front to end.
class CDxfSource {
public:
    // Reads up to size bytes, at least one unless the end is reached. Returns the number read, 0 at the end
    // of the file, a negative number when reading failed. Does not throw.
    virtual std::ptrdiff_t Read(char* bytes, std::size_t size) = 0;

protected:
    ~CDxfSource() = default;
};
