#include "input/CDxfStream.h"

#include "base/Sse2.h"

#include <cstring>

namespace {

// Large enough that the system's calls do not count, small enough to stay in the second-level cache.
constexpr std::size_t kBufferSize = std::size_t{128} << 10;
static_assert(CDxfStream::kMostLongestLine <= kBufferSize / 2);
constexpr char kEndOfFileByte = '\x1A';

} // namespace

CDxfStream::CDxfStream(CDxfSource& source, std::size_t longestLine)
    : m_source(source), m_longestLine(longestLine), m_buffer(new char[kBlock + kBufferSize + kBlock]()),
      m_front(m_buffer.get() + kBlock), m_line(m_front), m_end(m_front), m_longestPlain(longestLine)
{
    StartBlocksAt(m_line);
}

#if defined(PLEXORN_SSE2)

std::uint64_t CDxfStream::FindNewlines(const char* bytes)
{
    const __m128i lineFeed = _mm_set1_epi8('\n');
    std::uint64_t found = 0;
    for (unsigned i = 0; i < kBlock; i += 16) {
        const __m128i part = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + i));
        const int bits = _mm_movemask_epi8(_mm_cmpeq_epi8(part, lineFeed));
        found |= static_cast<std::uint64_t>(static_cast<unsigned>(bits)) << i;
    }
    return found;
}

bool CDxfStream::MayHoldNulOrEnd(const char* bytes, std::size_t size)
{
    const __m128i endOfFile = _mm_set1_epi8(kEndOfFileByte);
    __m128i least = endOfFile;
    __m128i ends = _mm_setzero_si128();
    const auto lookAt = [&](const char* place) {
        const __m128i part = _mm_loadu_si128(reinterpret_cast<const __m128i*>(place));
        least = _mm_min_epu8(least, part);
        ends = _mm_or_si128(ends, _mm_cmpeq_epi8(part, endOfFile));
    };
    std::size_t i = 0;
    for (; i + 64 < size; i += 64)
        for (std::size_t part = 0; part < 64; part += 16)
            lookAt(bytes + i + part);
    for (; i + 16 < size; i += 16)
        lookAt(bytes + i);
    lookAt(bytes + size - 16);
    const __m128i found = _mm_or_si128(ends, _mm_cmpeq_epi8(least, _mm_setzero_si128()));
    return _mm_movemask_epi8(found) != 0;
}

#else

std::uint64_t CDxfStream::FindNewlines(const char* bytes)
{
    std::uint64_t found = 0;
    for (unsigned i = 0; i < kBlock; ++i)
        found |= static_cast<std::uint64_t>(bytes[i] == '\n') << i;
    return found;
}

bool CDxfStream::MayHoldNulOrEnd(const char* bytes, std::size_t size)
{
    return std::any_of(bytes, bytes + size, [](char byte) { return byte == '\0' || byte == kEndOfFileByte; });
}

#endif

void CDxfStream::StartBlocksAt(const char* place)
{
    m_block = place - kBlock; // NextBlock steps onto it
    m_newlines = 0;
}

// Steps to the next block that begins within what has been read; false at the end of it.
bool CDxfStream::NextBlock()
{
    if (m_end - m_block <= static_cast<std::ptrdiff_t>(kBlock)) // the block's end is the end, or beyond it
        return false;
    m_block += kBlock;
    m_newlines = FindNewlines(m_block);
    const std::size_t valid = static_cast<std::size_t>(m_end - m_block);
    if (valid < kBlock)
        m_newlines &= (std::uint64_t{1} << valid) - 1;
    return true;
}

// A line that TryLine leaves: it ends in a later block, or is too long, or may hold a NUL.
CDxfLine CDxfStream::OtherLine()
{
    while (m_newlines == 0)
        if (!NextBlock())
            return LineAtEndOfBuffer();
    std::string_view line;
    if (TryLine(line))
        return {line.data(), line.size()};
    const char* const begin = std::exchange(m_line, m_block + std::countr_zero(m_newlines) + 1);
    m_newlines &= m_newlines - 1;
    const char* const lineFeed = m_line - 1;
    const char* const end = lineFeed - (lineFeed[-1] == '\r');
    return LimitLine(begin, static_cast<std::size_t>(end - begin));
}

CDxfLine CDxfStream::LimitLine(const char* begin, std::size_t size)
{
    if (size > m_longestLine) {
        size = m_longestLine;
        m_lineWasCut = true;
    }
    if (m_longestPlain == 0) {
        const std::size_t nul = std::string_view(begin, size).find('\0');
        m_lineHadNul = m_lineHadNul || nul != std::string_view::npos;
        size = std::min(nul, size);
    }
    return {begin, size};
}

// No line feed is left in the buffer: moves the begun line to its front and reads on.
CDxfLine CDxfStream::LineAtEndOfBuffer()
{
    for (;;) {
        const std::size_t begun = static_cast<std::size_t>(m_end - m_line);
        if (m_sourceEnded)
            return LastLine();
        if (begun > m_longestLine + 1) // more than the longest line and a carriage return
            return OverlongLine();
        std::memmove(m_front, m_line, begun);
        m_line = m_front;
        m_end = m_front + begun + Fill(m_front + begun);
        StartBlocksAt(m_front + begun);
        while (NextBlock())
            if (m_newlines != 0)
                return getline();
    }
}

CDxfLine CDxfStream::LastLine()
{
    const char* const begin = m_line;
    m_line = m_end;
    m_eof = true;
    m_exhausted = begin == m_end;
    return LimitLine(begin, static_cast<std::size_t>(m_end - begin));
}

// Keeps what counts of the begun line at the buffer's front and drops the rest of it.
CDxfLine CDxfStream::OverlongLine()
{
    std::memmove(m_front, m_line, m_longestLine + 1);
    char* const rest = m_front + m_longestLine + 1;
    const char* lineFeed = nullptr;
    while (lineFeed == nullptr && !m_sourceEnded) {
        m_end = rest + Fill(rest);
        lineFeed = static_cast<const char*>(std::memchr(rest, '\n', static_cast<std::size_t>(m_end - rest)));
    }
    m_eof = lineFeed == nullptr;
    m_line = m_eof ? m_end : lineFeed + 1;
    StartBlocksAt(m_line);
    return LimitLine(m_front, m_longestLine + 1);
}

// Reads into the buffer from place on; returns the number of bytes that count.
std::size_t CDxfStream::Fill(char* place)
{
    const std::size_t room = static_cast<std::size_t>(m_front + kBufferSize - place);
    const std::ptrdiff_t count = m_source.Read(place, room);
    if (count <= 0) {
        m_sourceEnded = true;
        m_readFailed = count < 0;
        return 0;
    }
    std::size_t size = static_cast<std::size_t>(count);
    if (!MayHoldNulOrEnd(place, size)) [[likely]]
        return size;
    if (const void* const end = std::memchr(place, kEndOfFileByte, size)) {
        size = static_cast<std::size_t>(static_cast<const char*>(end) - place);
        m_sourceEnded = true;
    }
    // The mark stays for the rest of the file: the line that has the NUL may be in this block or the
    // next.
    if (std::memchr(place, '\0', size) != nullptr)
        m_longestPlain = 0;
    return size;
}
