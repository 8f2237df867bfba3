// The lines of a drawing.
#pragma once

#include "base/CDxfLine.h"
#include "input/CDxfSource.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

// Cuts a source into lines as a narrow stream in text mode does when getline reads it into a buffer of 1024
// bytes: the same lines and the same end-of-file flag, on every platform. A carriage return right before a
// line feed is dropped and a byte 0x1A ends the file. A line of more than 1023 bytes gives its first 1023,
// and a NUL byte ends its line's text. The limit can be another number than 1023.
//
// The source is read in large blocks, whose line ends are found 64 bytes at a time.
class CDxfStream {
public:
    static constexpr std::size_t kLongestLine = 1023;

    // Half of what is read at once.
    static constexpr std::size_t kMostLongestLine = std::size_t{64} << 10;

    // The source must outlive the stream. longestLine is at most kMostLongestLine. Throws std::bad_alloc.
    explicit CDxfStream(CDxfSource& source, std::size_t longestLine = kLongestLine);

    // An empty line to begin with, for code that keeps the last one.
    CDxfLine EmptyLine() const { return {m_front, 0}; }

    // The next line, without its end; empty at the end of the file, as often as it is asked for. The
    // characters stay valid until the next call.
    CDxfLine getline()
    {
        std::string_view line;
        if (TryLine(line)) [[likely]]
            return {line.data(), line.size()};
        return OtherLine();
    }

    // The same, for a line that ends in the current block and that needs no second look; false, with nothing
    // changed, for any other. A caller that leaves other lines to a function of its own calls nothing here.
    bool TryLine(std::string_view& line)
    {
        if (m_newlines == 0) [[unlikely]]
            return false;
        const char* const lineFeed = m_block + std::countr_zero(m_newlines);
        // Before a line is a line feed or the zero before the buffer, and so no carriage return.
        const char* const end = lineFeed - (lineFeed[-1] == '\r');
        const std::size_t size = static_cast<std::size_t>(end - m_line);
        if (size > m_longestPlain) [[unlikely]]
            return false;
        line = {m_line, size};
        m_newlines &= m_newlines - 1;
        m_line = lineFeed + 1;
        return true;
    }

    // True once a read has met the end of the file: with the last line if no line feed ends it, else with
    // the empty line after it.
    bool eof() const { return m_eof; }

    // True once getline has found nothing left to read: the empty line that it gave is not in the file.
    bool IsExhausted() const { return m_exhausted; }

    // Something happened during the last getline that is to be reported.
    bool HasTrouble() const { return m_lineWasCut || m_readFailed; }

    // Each says once whether the last line was longer than the longest one, or whether the source failed.
    bool TakeLineWasCut() { return std::exchange(m_lineWasCut, false); }
    bool TakeReadFailed() { return std::exchange(m_readFailed, false); }

    // Each says whether a NUL has ended the text of a line before the line itself, the second one once.
    bool LineHadNul() const { return m_lineHadNul; }
    bool TakeLineHadNul() { return std::exchange(m_lineHadNul, false); }

private:
    static constexpr std::size_t kBlock = CDxfLine::kAround;

    // Line feeds among the 64 bytes at a place, bit 0 for the first.
    static std::uint64_t FindNewlines(const char* bytes);

    // False only when there is neither a NUL nor an end-of-file byte among size bytes; up to 15 before them
    // are looked at too. One pass over 16 bytes at a time: two calls of memchr took a fifth of the
    // reading where the runtime library's goes byte by byte (perf, under Wine).
    static bool MayHoldNulOrEnd(const char* bytes, std::size_t size);

    CDxfLine OtherLine();
    CDxfLine LimitLine(const char* begin, std::size_t size);
    bool NextBlock();
    void StartBlocksAt(const char* place);
    CDxfLine LineAtEndOfBuffer();
    CDxfLine LastLine();
    CDxfLine OverlongLine();
    std::size_t Fill(char* place);

    CDxfSource& m_source;
    const std::size_t m_longestLine;
    std::unique_ptr<char[]> m_buffer; // what is read into, with a block before and after it
    char* const m_front;
    const char* m_line;  // where the next line begins
    const char* m_end;   // the end of what has been read
    const char* m_block; // the block that m_newlines describes
    std::uint64_t m_newlines = 0;
    bool m_eof = false;
    bool m_exhausted = false;
    bool m_sourceEnded = false;
    std::size_t m_longestPlain; // the longest line; 0 once there may be a NUL
    bool m_lineWasCut = false;
    bool m_readFailed = false;
    bool m_lineHadNul = false;
};
