#include "prepare/InputSources.h"

#include "input/CDxfMemory.h"
#include "input/CDxfOpenFile.h"

#include <utility>

namespace prepare {

CDxfSource& FunctionInput::Rewound()
{
    m_offset = 0;
    return *this;
}

std::ptrdiff_t FunctionInput::Read(char* bytes, std::size_t size)
{
    const std::ptrdiff_t count = m_read(m_user, m_offset, bytes, size);
    if (count > 0 && static_cast<std::size_t>(count) > size)
        return -1; // the function has written past the end of its room, or returned a wrong number
    if (count > 0)
        m_offset += static_cast<std::uint64_t>(count);
    return count;
}

FileInput::FileInput(const char* path) : m_file(OpenInput(path))
{
    if (m_file == nullptr)
        return;
    m_size = SizeOfInput(m_file.get());
    if (std::fseek(m_file.get(), 0, SEEK_SET) != 0)
        ReadWhole();
}

void FileInput::ReadWhole()
{
    CDxfOpenFile file(m_file.get());
    char part[1 << 16];
    std::ptrdiff_t count = 0;
    while ((count = file.Read(part, sizeof(part))) > 0)
        m_bytes.append(part, static_cast<std::size_t>(count));
    m_isKept = count == 0;
    m_file.reset();
    m_size = m_bytes.size();
}

CDxfSource& FileInput::Rewound()
{
    if (m_isKept) {
        m_memory = CDxfMemory(m_bytes);
        return m_memory;
    }
    if (m_file != nullptr && std::fseek(m_file.get(), 0, SEEK_SET) != 0)
        m_file.reset();
    return *this;
}

std::ptrdiff_t FileInput::Read(char* bytes, std::size_t size)
{
    if (m_file == nullptr)
        return -1;
    return CDxfOpenFile(m_file.get()).Read(bytes, size);
}

} // namespace prepare
