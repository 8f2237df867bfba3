#include "prepare/OpenInput.h"

#include "input/Readable_posix.h"

#include <sys/stat.h>

namespace prepare {

std::FILE* OpenInput(const char* path)
{
    std::FILE* const file = std::fopen(path, "rbe");
    if (file == nullptr || IsReadable(fileno(file)))
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
