// Any drawing's bytes as lines of text that end in line feeds.
#pragma once

#include "input/CDxfSource.h"
#include "prepare/pairs/Decoder.h"
#include "prepare/pairs/DoubledLineEnds.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace prepare {

// Gives the bytes of another source as CDxfStream takes them: byte order marks are dropped, UTF-16 and binary
// drawings become text, a carriage return that no line feed follows is a line feed, a byte 0x1A that does not
// begin a line is a blank, and where line ends were doubled, they are single again. Everything else stays as
// it is.
class TextSource final : public CDxfSource {
public:
    enum class DoubledEnds : bool { Kept, MadeSingle };

    // How many bytes at its start show what a file is.
    static constexpr std::size_t kFront = 32;
    // Whether a file that begins so is a binary drawing or UTF-16.
    static bool Decodes(std::string_view front);

    // source must outlive this.
    explicit TextSource(CDxfSource& source, DoubledEnds ends = DoubledEnds::MadeSingle)
        : m_source(source), m_doubledEnds(ends)
    {
    }

    // size must be above kMostHeld. Gives a negative number when the other source does, and when memory is
    // short.
    std::ptrdiff_t Read(char* bytes, std::size_t size) override;

    std::uint64_t BytesRead() const { return m_bytesRead; }
    // True once memory was short, which is why reading failed then.
    bool IsShortOfMemory() const { return m_isShortOfMemory; }
    // True once a binary drawing has a group that this form of it cannot have.
    bool IsBroken() const { return m_decoder && m_decoder->IsBroken(); }
    // True once an empty line has been seen after each of the first lines; such lines are left out.
    bool IsSpaced() const { return m_isSpaced; }
    // The number in the file of a line that was given out.
    std::uint64_t LineInFile(std::uint64_t line) const { return m_isSpaced ? 2 * line - 1 : line; }

private:
    // Carriage returns at the end of a part whose meaning the next byte decides. More are line ends at once.
    static constexpr std::size_t kMostHeld = 16;
    // How many bytes at its start show whether line ends were doubled.
    static constexpr std::size_t kLooked = 512;

    void Begin();
    std::ptrdiff_t ReadRaw(char* bytes, std::size_t size);
    std::ptrdiff_t ReadSource(char* bytes, std::size_t size);
    std::ptrdiff_t ReadDecoded(char* bytes, std::size_t size);
    std::size_t HoldCarriageReturns(const char* bytes, std::size_t size);
    static std::size_t NormaliseLineEnds(char* bytes, std::size_t size);
    void BlankInnerEndBytes(char* bytes, std::size_t size);

    CDxfSource& m_source;
    const DoubledEnds m_doubledEnds;
    std::unique_ptr<Decoder> m_decoder; // null: the bytes are text as they are
    std::string m_front;                // what was read to see what the file is, not given out yet
    std::string m_decoded;              // given out up to m_given
    std::size_t m_given = 0;
    std::size_t m_held = 0;
    std::uint64_t m_bytesRead = 0;
    char m_last = '\n'; // the byte given out last
    bool m_isSpaced = false;
    EmptyLines m_emptyLines;
    bool m_hasBegun = false;
    bool m_hasEnded = false;
    bool m_hasFailed = false;
    bool m_isShortOfMemory = false;
    bool m_hasFinished = false; // m_decoder has given everything
};

} // namespace prepare
