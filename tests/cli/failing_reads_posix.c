/* Loaded before the C library: reading a file fails after as many bytes as FAILING_READS_AFTER says, by the
 * functions that FAILING_READS_BY names: "fread", "read" or both. Bringing a file to the disk fails where
 * FAILING_SYNC is set. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

static long long LeftBefore(const char* function, long long position)
{
    const char* after = getenv("FAILING_READS_AFTER");
    const char* by = getenv("FAILING_READS_BY");
    if (!after || !by || !strstr(by, function) || (function[0] == 'r' && strcmp(by, "fread") == 0))
        return -1;
    const long long left = atoll(after) - position;
    return left > 0 ? left : 0;
}

ssize_t read(int file, void* bytes, size_t size)
{
    static ssize_t (*next)(int, void*, size_t);
    static long long given; /* by what has no position */
    if (!next)
        next = (ssize_t(*)(int, void*, size_t))dlsym(RTLD_NEXT, "read");
    const long long position = lseek(file, 0, SEEK_CUR);
    const long long left = LeftBefore("read", position >= 0 ? position : given);
    if (left == 0) {
        errno = EIO;
        return -1;
    }
    const ssize_t count = next(file, bytes, left > 0 && (long long)size > left ? (size_t)left : size);
    if (position < 0 && count > 0)
        given += count;
    return count;
}

size_t fread(void* bytes, size_t size, size_t count, FILE* file)
{
    static size_t (*next)(void*, size_t, size_t, FILE*);
    if (!next)
        next = (size_t(*)(void*, size_t, size_t, FILE*))dlsym(RTLD_NEXT, "fread");
    const long long left = LeftBefore("fread", ftell(file));
    if (left == 0) {
        file->_flags |= _IO_ERR_SEEN;
        errno = EIO;
        return 0;
    }
    return next(bytes, size, left > 0 && (long long)(size * count) > left ? (size_t)left / size : count,
                file);
}

int fsync(int file)
{
    static int (*next)(int);
    if (!next)
        next = (int (*)(int))dlsym(RTLD_NEXT, "fsync");
    if (!getenv("FAILING_SYNC"))
        return next(file);
    errno = EIO;
    return -1;
}
