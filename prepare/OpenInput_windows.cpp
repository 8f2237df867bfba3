#include "prepare/OpenInput.h"

#include "base/Utf8.h"

#include <io.h>
#include <sys/stat.h>

namespace prepare {

std::FILE* OpenInput(const char* path)
{
    const auto wide = WideFromUtf8(path);
    return wide ? _wfopen(wide->c_str(), L"rbN") : nullptr;
}

std::uint64_t SizeOfInput(std::FILE* file)
{
    const std::int64_t size = _filelengthi64(_fileno(file));
    return size > 0 ? static_cast<std::uint64_t>(size) : 0;
}

} // namespace prepare
