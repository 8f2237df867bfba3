#include "input/CDxfFile.h"

#include "input/Readable_posix.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

// Opened without waiting: a pipe that nobody writes to is empty and keeps no host waiting. Reading waits.
CDxfFile::CDxfFile(const char* path) : m_file(open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK))
{
    const int file = static_cast<int>(m_file);
    if (file >= 0 && (!IsReadable(file) || fcntl(file, F_SETFL, 0) != 0)) {
        close(file);
        m_file = -1;
    }
}

CDxfFile::~CDxfFile()
{
    if (IsOpen())
        close(static_cast<int>(m_file));
}

bool CDxfFile::IsOpen() const
{
    return m_file >= 0;
}

std::ptrdiff_t CDxfFile::Read(char* bytes, std::size_t size)
{
    for (;;) {
        const ssize_t count = read(static_cast<int>(m_file), bytes, size);
        if (count >= 0 || errno != EINTR)
            return count;
    }
}
