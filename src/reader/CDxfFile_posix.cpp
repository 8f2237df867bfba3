#include "reader/CDxfSource.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

CDxfFile::CDxfFile(const char* path) : m_file(open(path, O_RDONLY | O_CLOEXEC))
{
    struct stat status;
    if (m_file >= 0 && (fstat(static_cast<int>(m_file), &status) != 0 || S_ISDIR(status.st_mode))) {
        close(static_cast<int>(m_file));
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
