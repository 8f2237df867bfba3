/* Loaded before the C library: lets calls of it fail.
 *
 * Reading a file fails after as many bytes as FAILING_READS_AFTER says, by the functions that
 * FAILING_READS_BY names: "fread", "read" or both.
 *
 * Of the calls of the kind FAILING_CALLS, the one of the number FAILING_AT fails, counted from 1; with a plus
 * sign after the number, all after it fail as well; with FAILING_ERROR, for the reason of that number. When
 * the process ends by itself, the number of these calls is written to the file FAILING_TOLD. What goes to the
 * standard error stream does not fail: it says what did. With FAILING_SIGNAL, the process gets the signal of
 * that number at such a call, which does not fail. */
#define _GNU_SOURCE
#include <dirent.h>
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <stdarg.h>
#include <stdatomic.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

static const char* kind = "";
static long failing; /* 0: none */
static int interrupting;
static int reason; /* 0: that of the call */
static bool fails_later;
static atomic_long calls;

static void Begin(void)
{
    const char* const at = getenv("FAILING_AT");
    const char* const of = getenv("FAILING_CALLS");
    if (!at || !of)
        return;
    char* end = NULL;
    failing = strtol(at, &end, 10);
    interrupting = getenv("FAILING_SIGNAL") ? atoi(getenv("FAILING_SIGNAL")) : 0;
    reason = getenv("FAILING_ERROR") ? atoi(getenv("FAILING_ERROR")) : 0;
    fails_later = *end == '+';
    kind = of;
}

__attribute__((destructor)) static void Tell(void)
{
    const char* const told = getenv("FAILING_TOLD");
    char text[32];
    const int size = snprintf(text, sizeof text, "%ld", (long)calls);
    kind = "";
    const int file = told ? open(told, O_WRONLY | O_CREAT | O_TRUNC, 0600) : -1;
    if (file >= 0 && write(file, text, (size_t)size) == size)
        close(file);
}

static bool Fails(const char* of, int error)
{
    if (strcmp(of, kind) != 0)
        return false;
    const long number = ++calls;
    const bool fails = number == failing || (fails_later && number > failing);
    if (fails && interrupting != 0)
        raise(interrupting);
    else if (fails)
        errno = reason != 0 ? reason : error;
    return fails && interrupting == 0;
}

/* The function of that name in the C library, as a pointer of the type of this one. */
#define NEXT(name) (__extension__(__typeof__(&name)) dlsym(RTLD_NEXT, #name))

/* dlsym takes memory itself. */
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* memory, size_t size);

void* malloc(size_t size)
{
    return Fails("memory", ENOMEM) ? NULL : __libc_malloc(size);
}

void* calloc(size_t count, size_t size)
{
    return Fails("memory", ENOMEM) ? NULL : __libc_calloc(count, size);
}

void* realloc(void* memory, size_t size)
{
    return Fails("memory", ENOMEM) ? NULL : __libc_realloc(memory, size);
}

typedef int Main(int, char**, char**);
static Main* program;

static int BeginAndRun(int count, char** arguments, char** environment)
{
    Begin();
    return program(count, arguments, environment);
}

/* What comes before main does not count: the loader takes memory, and so do constants of the parser of
 * options. */
int __libc_start_main(Main* run, int count, char** arguments, void (*init)(void), void (*fini)(void),
                      void (*end)(void), void* stack)
{
    typedef int Start(Main*, int, char**, void (*)(void), void (*)(void), void (*)(void), void*);
    program = run;
    return (__extension__(Start*) dlsym(RTLD_NEXT, "__libc_start_main"))(BeginAndRun, count, arguments, init,
                                                                         fini, end, stack);
}

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
    static long long given; /* by what has no position */
    const long long position = lseek(file, 0, SEEK_CUR);
    const long long left = LeftBefore("read", position >= 0 ? position : given);
    if (left == 0)
        errno = EIO;
    if (left == 0 || Fails("read", EIO))
        return -1;
    const ssize_t count = NEXT(read)(file, bytes, left > 0 && (long long)size > left ? (size_t)left : size);
    if (position < 0 && count > 0)
        given += count;
    return count;
}

size_t fread(void* bytes, size_t size, size_t count, FILE* file)
{
    const long long left = LeftBefore("fread", ftell(file));
    if (left == 0 || Fails("read", EIO)) {
        file->_flags |= _IO_ERR_SEEN;
        errno = EIO;
        return 0;
    }
    return NEXT(fread)(bytes, size,
                       left > 0 && (long long)(size * count) > left ? (size_t)left / size : count, file);
}

size_t fwrite(const void* bytes, size_t size, size_t count, FILE* file)
{
    if (file == stderr || !Fails("write", ENOSPC))
        return NEXT(fwrite)(bytes, size, count, file);
    file->_flags |= _IO_ERR_SEEN;
    return 0;
}

int fflush(FILE* file)
{
    return file && file != stderr && Fails("flush", ENOSPC) ? EOF : NEXT(fflush)(file);
}

int fsync(int file)
{
    return Fails("sync", EIO) ? -1 : NEXT(fsync)(file);
}

/* As on a disk in the network, which says late that there is no room: the file is closed all the same. */
int fclose(FILE* file)
{
    const int result = NEXT(fclose)(file);
    return Fails("close", EDQUOT) ? EOF : result;
}

int close(int file)
{
    const int result = NEXT(close)(file);
    return Fails("close", EDQUOT) ? -1 : result;
}

int open(const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = flags & O_CREAT ? va_arg(more, mode_t) : 0;
    va_end(more);
    return Fails("open", EMFILE) ? -1 : NEXT(open)(path, flags, mode);
}

FILE* fopen(const char* path, const char* mode)
{
    return Fails("open", EMFILE) ? NULL : NEXT(fopen)(path, mode);
}

FILE* fdopen(int file, const char* mode)
{
    return Fails("open", ENOMEM) ? NULL : NEXT(fdopen)(file, mode);
}

int memfd_create(const char* name, unsigned flags)
{
    return Fails("open", EMFILE) ? -1 : NEXT(memfd_create)(name, flags);
}

FILE* tmpfile(void)
{
    return Fails("open", EMFILE) ? NULL : NEXT(tmpfile)();
}

int dup(int file)
{
    return Fails("open", EMFILE) ? -1 : NEXT(dup)(file);
}

int openat(int folder, const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = flags & O_CREAT ? va_arg(more, mode_t) : 0;
    va_end(more);
    return Fails("open", EMFILE) ? -1 : NEXT(openat)(folder, path, flags, mode);
}

DIR* opendir(const char* path)
{
    return Fails("list", EMFILE) ? NULL : NEXT(opendir)(path);
}

DIR* fdopendir(int file)
{
    return Fails("list", EMFILE) ? NULL : NEXT(fdopendir)(file);
}

struct dirent* readdir(DIR* folder)
{
    return Fails("list", EIO) ? NULL : NEXT(readdir)(folder);
}

int stat(const char* path, struct stat* status)
{
    return Fails("status", EIO) ? -1 : NEXT(stat)(path, status);
}

int lstat(const char* path, struct stat* status)
{
    return Fails("status", EIO) ? -1 : NEXT(lstat)(path, status);
}

int fstat(int file, struct stat* status)
{
    return Fails("status", EIO) ? -1 : NEXT(fstat)(file, status);
}

int fseek(FILE* file, long offset, int whence)
{
    return Fails("seek", EIO) ? -1 : NEXT(fseek)(file, offset, whence);
}

int mkdir(const char* path, mode_t mode)
{
    return Fails("folder", ENOSPC) ? -1 : NEXT(mkdir)(path, mode);
}

int rename(const char* from, const char* to)
{
    return Fails("rename", EIO) ? -1 : NEXT(rename)(from, to);
}

int fchown(int file, uid_t owner, gid_t group)
{
    return Fails("access", EPERM) ? -1 : NEXT(fchown)(file, owner, group);
}

int fchmod(int file, mode_t mode)
{
    return Fails("access", EPERM) ? -1 : NEXT(fchmod)(file, mode);
}

int remove(const char* path)
{
    return Fails("remove", EIO) ? -1 : NEXT(remove)(path);
}
