// Which files may be read as drawings.
#pragma once

#include <sys/stat.h>

// Files and pipes: a directory cannot be read, and a device may have no end.
inline bool IsReadable(int file)
{
    struct stat status;
    return fstat(file, &status) == 0 &&
           (S_ISREG(status.st_mode) || S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode));
}
