#include "input/CDxfFile.h"

#include "input/Readable_windows.h"

#include <algorithm>

CDxfFile::CDxfFile(const char* path)
    : m_file(reinterpret_cast<std::intptr_t>(
          CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                      // The server of a pipe learns who opened it, but may not act in that user's name.
                      FILE_FLAG_SEQUENTIAL_SCAN | SECURITY_SQOS_PRESENT | SECURITY_IDENTIFICATION, nullptr)))
{
    if (IsOpen() && !IsReadable(reinterpret_cast<HANDLE>(m_file))) {
        CloseHandle(reinterpret_cast<HANDLE>(m_file));
        m_file = reinterpret_cast<std::intptr_t>(INVALID_HANDLE_VALUE);
    }
}

CDxfFile::~CDxfFile()
{
    if (IsOpen())
        CloseHandle(reinterpret_cast<HANDLE>(m_file));
}

bool CDxfFile::IsOpen() const
{
    return reinterpret_cast<HANDLE>(m_file) != INVALID_HANDLE_VALUE;
}

std::ptrdiff_t CDxfFile::Read(char* bytes, std::size_t size)
{
    DWORD count = 0;
    const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(size, 1u << 30));
    if (ReadFile(reinterpret_cast<HANDLE>(m_file), bytes, wanted, &count, nullptr))
        return static_cast<std::ptrdiff_t>(count);
    return GetLastError() == ERROR_BROKEN_PIPE ? 0 : -1; // the writer's end of a pipe was closed: its end
}
