#include "prepare/InputFile.h"

#include <sys/stat.h>

namespace prepare {

namespace {

// Files and pipes: a directory cannot be read, and a device may have no end.
bool IsReadable(std::FILE* file)
{
    struct stat status;
    return fstat(fileno(file), &status) == 0 &&
           (S_ISREG(status.st_mode) || S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode));
}

} // namespace

std::FILE* OpenInput(const char* path)
{
    std::FILE* const file = std::fopen(path, "rbe");
    if (file == nullptr || IsReadable(file))
        return file;
    std::fclose(file);
    return nullptr;
}

std::uint64_t SizeOfInput(std::FILE* file)
{
    struct stat status;
    return fstat(fileno(file), &status) == 0 && S_ISREG(status.st_mode)
               ? static_cast<std::uint64_t>(status.st_size)
               : 0;
}

} // namespace prepare
