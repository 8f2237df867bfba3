#include "prepare/pairs/TextSource.h"

#include "base/Utf8.h"
#include "prepare/pairs/BinaryText.h"
#include "prepare/pairs/Utf16Text.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <string_view>

namespace prepare {

namespace {

constexpr std::size_t kConverted = std::size_t{32} << 10; // converted at once

bool IsUtf16(std::string_view front)
{
    return front.starts_with(kUtf16LittleMark) || front.starts_with(kUtf16BigMark);
}

// True when a carriage return is followed by anything but a line feed. Without branches, so that it is done
// in wide steps: many drawings have no carriage return, and nearly all of the others no lone one.
bool HasLoneCarriageReturn(const char* bytes, std::size_t size)
{
    unsigned char any = 0, lone = 0;
    for (std::size_t i = 0; i < size; ++i)
        any = static_cast<unsigned char>(any | (bytes[i] == '\r'));
    for (std::size_t i = 0; any != 0 && i + 1 < size; ++i)
        lone = static_cast<unsigned char>(lone | ((bytes[i] == '\r') & (bytes[i + 1] != '\n')));
    return lone != 0;
}

} // namespace

bool TextSource::Decodes(std::string_view front)
{
    return IsUtf16(front) || front.starts_with(BinaryText::kSentinel);
}

std::ptrdiff_t TextSource::Read(char* bytes, std::size_t size)
{
    try {
        if (!m_hasBegun)
            Begin();
        for (;;) {
            const std::size_t held = m_held;
            std::memset(bytes, '\r', held);
            const std::ptrdiff_t count = ReadRaw(bytes + held, size - held);
            if (count < 0)
                return count;
            m_held = 0;
            std::size_t valid = held + static_cast<std::size_t>(count);
            if (count != 0)
                valid = HoldCarriageReturns(bytes, valid);
            if (m_isSpaced || HasLoneCarriageReturn(bytes, valid) || (valid != 0 && bytes[valid - 1] == '\r'))
                valid = NormaliseLineEnds(bytes, valid);
            if (m_isSpaced)
                valid = m_emptyLines.LeaveOut(bytes, valid);
            BlankInnerEndBytes(bytes, valid);
            if (valid != 0 || count == 0)
                return static_cast<std::ptrdiff_t>(valid);
        }
    } catch (const std::bad_alloc&) {
        m_isShortOfMemory = true;
        return -1;
    }
}

// Takes carriage returns from the end of a part.
std::size_t TextSource::HoldCarriageReturns(const char* bytes, std::size_t size)
{
    while (size != 0 && bytes[size - 1] == '\r' && m_held < kMostHeld) {
        --size;
        ++m_held;
    }
    return size;
}

// Makes one line feed of a line end, whether it is "\n", "\r\n", "\r\r\n" or "\r"; returns the new size.
std::size_t TextSource::NormaliseLineEnds(char* bytes, std::size_t size)
{
    char* out = bytes;
    std::size_t returns = 0;
    for (std::size_t i = 0; i < size; ++i) {
        if (bytes[i] == '\r') {
            ++returns;
            continue;
        }
        if (bytes[i] != '\n')
            out = std::fill_n(out, returns, '\n');
        returns = 0;
        *out++ = bytes[i];
    }
    return static_cast<std::size_t>(std::fill_n(out, returns, '\n') - bytes);
}

// A text can hold the byte that ends a file where it begins a line.
void TextSource::BlankInnerEndBytes(char* bytes, std::size_t size)
{
    if (size == 0)
        return;
    char* at = bytes;
    char* const end = bytes + size;
    while ((at = static_cast<char*>(std::memchr(at, '\x1A', static_cast<std::size_t>(end - at)))) !=
           nullptr) {
        if ((at == bytes ? m_last : at[-1]) != '\n')
            *at = ' ';
        if (++at == end)
            break;
    }
    m_last = end[-1];
}

// Sees what the file is by its first bytes.
void TextSource::Begin()
{
    m_hasBegun = true;
    char bytes[kLooked];
    std::size_t count = 0;
    while (count < kLooked && !m_hasEnded && !m_hasFailed)
        count +=
            static_cast<std::size_t>(std::max<std::ptrdiff_t>(ReadSource(bytes + count, kLooked - count), 0));
    std::string_view front(bytes, count);
    if (front.starts_with(kUtf8Mark)) {
        front.remove_prefix(kUtf8Mark.size());
    } else if (IsUtf16(front)) {
        m_decoder = std::make_unique<Utf16Text>(front.starts_with(kUtf16BigMark));
        front.remove_prefix(kUtf16BigMark.size());
    } else if (front.starts_with(BinaryText::kSentinel)) {
        m_decoder = std::make_unique<BinaryText>();
    }
    m_front = front;
    if (m_decoder || m_doubledEnds == DoubledEnds::Kept)
        return;
    std::string lines = m_front;
    lines.resize(NormaliseLineEnds(lines.data(), lines.size()));
    m_isSpaced = AreLineEndsDoubled(lines);
}

std::ptrdiff_t TextSource::ReadRaw(char* bytes, std::size_t size)
{
    if (m_decoder)
        return ReadDecoded(bytes, size);
    if (m_front.empty())
        return ReadSource(bytes, size);
    const std::size_t count = m_front.copy(bytes, size);
    m_front.erase(0, count);
    return static_cast<std::ptrdiff_t>(count);
}

std::ptrdiff_t TextSource::ReadDecoded(char* bytes, std::size_t size)
{
    while (m_given == m_decoded.size()) {
        m_decoded.clear();
        m_given = 0;
        if (!m_front.empty()) {
            m_decoder->Take(m_front, m_decoded);
            m_front.clear();
            continue;
        }
        if (m_hasFinished)
            return 0;
        char part[kConverted];
        const std::ptrdiff_t count = ReadSource(part, kConverted);
        if (count < 0)
            return count;
        m_hasFinished = count == 0;
        if (m_hasFinished)
            m_decoder->Finish(m_decoded);
        else
            m_decoder->Take({part, static_cast<std::size_t>(count)}, m_decoded);
    }
    const std::size_t count = m_decoded.copy(bytes, size, m_given);
    m_given += count;
    return static_cast<std::ptrdiff_t>(count);
}

// Never asks the source again once it has ended or failed.
std::ptrdiff_t TextSource::ReadSource(char* bytes, std::size_t size)
{
    if (m_hasFailed)
        return -1;
    if (m_hasEnded)
        return 0;
    const std::ptrdiff_t count = m_source.Read(bytes, size);
    m_hasFailed = count < 0;
    m_hasEnded = count == 0;
    m_bytesRead += count > 0 ? static_cast<std::uint64_t>(count) : 0;
    return count;
}

} // namespace prepare
