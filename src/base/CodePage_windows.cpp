#include "base/CodePage.h"

#include "base/Api_windows.h"

#include <algorithm>
#include <cwchar>

bool IsCodePageUtf8()
{
    return GetACP() == CP_UTF8;
}

std::size_t ToWide(std::string_view narrow, wchar_t* wide)
{
    const auto isAscii = [](char character) { return static_cast<unsigned char>(character) < 0x80; };
    if (std::all_of(narrow.begin(), narrow.end(), isAscii)) { // most texts; the system's call is far slower
        std::transform(narrow.begin(), narrow.end(), wide,
                       [](char character) { return static_cast<wchar_t>(character); });
        return narrow.size();
    }
    const int size = static_cast<int>(narrow.size()); // a line: at most 1023
    return static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, narrow.data(), size, wide, size));
}

std::string ToNarrowPath(const wchar_t* path)
{
    // Twice the length and the zero: what any double-byte code page needs. A path that does not fit or
    // cannot be converted names no file, and opening it fails.
    const std::size_t length = std::wcslen(path);
    std::string narrow(2 * length + 1, '\0');
    if (WideCharToMultiByte(CP_ACP, 0, path, static_cast<int>(length + 1), narrow.data(),
                            static_cast<int>(narrow.size()), nullptr, nullptr) == 0)
        narrow.clear();
    narrow.resize(std::min(narrow.find('\0'), narrow.size()));
    return narrow;
}
