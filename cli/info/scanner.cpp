#include "cli/info/scanner.h"

#include "cli/info/numbers.h"

#include <algorithm>
#include <cstring>
#include <optional>

namespace plexorn {

namespace {

constexpr size_t BlockSize = 1 << 16;
constexpr char EndOfFile = '\x1A';

const char* Find(const char* begin, const char* end, char wanted)
{
    const void* found = std::memchr(begin, wanted, static_cast<size_t>(end - begin));
    return found ? static_cast<const char*>(found) : end;
}

} // namespace

CLineScanner::CLineScanner(std::FILE* file)
    : m_pFile(file), m_block(BlockSize), m_pAt(m_block.data()), m_pEnd(m_pAt)
{
}

bool CLineScanner::Fill()
{
    if (m_bEnded)
        return false;
    size_t size = std::fread(m_block.data(), 1, m_block.size(), m_pFile);
    m_pAt = m_block.data();
    m_pEnd = Find(m_pAt, m_pAt + size, EndOfFile);
    m_bEnded = m_pEnd != m_pAt + size || size < m_block.size();
    m_bHasNul = m_bHasNul || Find(m_pAt, m_pEnd, '\0') != m_pEnd;
    return m_pAt != m_pEnd;
}

void CLineScanner::Keep(const char* begin, const char* end)
{
    size_t size = std::min(static_cast<size_t>(end - begin), LongestLine - m_nKept);
    std::copy_n(begin, size, m_line.data() + m_nKept);
    m_nKept += size;
}

std::string_view CLineScanner::Kept()
{
    std::string_view line(m_line.data(), m_nKept);
    m_nKept = 0;
    return line;
}

bool CLineScanner::Next(std::string_view& line)
{
    if (m_pAt == m_pEnd && !Fill())
        return false;
    const char* begin = m_pAt;
    const char* end = Find(begin, m_pEnd, '\n');
    bool isShared = end == m_pEnd;
    while (end == m_pEnd) {
        Keep(begin, end);
        m_pAt = m_pEnd;
        if (!Fill())
            break;
        begin = m_pAt;
        end = Find(begin, m_pEnd, '\n');
    }
    if (end != m_pEnd) {
        m_pAt = end + 1;
        if (isShared)
            Keep(begin, end);
    }
    line = isShared ? Kept() : std::string_view(begin, static_cast<size_t>(end - begin));
    if (m_bHasNul)
        line = line.substr(0, line.find('\0'));
    line = Trimmed(line.substr(0, LongestLine));
    ++m_nNumber;
    return true;
}

bool CPairScanner::Next()
{
    std::string_view line;
    std::optional<int> code;
    while (!code) {
        if (!m_lines.Next(line))
            return false;
        code = LeadingInteger(line);
        if (!code && m_nOddLines++ == 0)
            m_nFirstOddLine = m_lines.Number();
    }
    m_nCode = *code;
    return m_lines.Next(m_value);
}

} // namespace plexorn
