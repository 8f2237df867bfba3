#include "prepare/OpenInput.h"

#include "base/Utf8.h"
#include "input/Readable_windows.h"

#include <io.h>
#include <sys/stat.h>

namespace prepare {

std::FILE* OpenInput(const char* path)
{
    const auto wide = WideFromUtf8(path);
    std::FILE* const file = wide ? _wfopen(wide->c_str(), L"rbN") : nullptr;
    if (file == nullptr || IsReadable(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)))))
        return file;
    std::fclose(file);
    return nullptr;
}

std::uint64_t SizeOfInput(std::FILE* file)
{
    const std::int64_t size = _filelengthi64(_fileno(file));
    return size > 0 ? static_cast<std::uint64_t>(size) : 0;
}

} // namespace prepare
