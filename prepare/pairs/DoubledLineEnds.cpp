#include "prepare/pairs/DoubledLineEnds.h"

#include "base/Letters.h"
#include "base/Numbers.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace prepare {

namespace {

enum class LineKind { Empty, Code, Other };

// Takes a line, with its end, from the front of a text that has one.
LineKind TakeLine(std::string_view& text)
{
    const std::size_t end = text.find('\n');
    const std::string_view line = Trim(text.substr(0, end));
    text.remove_prefix(end + 1);
    std::int32_t code = 0;
    if (line.empty())
        return LineKind::Empty;
    return ParseWholeCode(line, code) ? LineKind::Code : LineKind::Other;
}

} // namespace

// The first three lines of a drawing are a code, a word or a comment, and a code. A program that takes "\r\n"
// for two line ends makes an empty line after each.
bool AreLineEndsDoubled(std::string_view front)
{
    constexpr LineKind kSpaced[] = {LineKind::Code,  LineKind::Empty, LineKind::Other,
                                    LineKind::Empty, LineKind::Code,  LineKind::Empty};
    if (std::count(front.begin(), front.end(), '\n') < std::ssize(kSpaced))
        return false;
    return std::all_of(std::begin(kSpaced), std::end(kSpaced),
                       [&](LineKind kind) { return TakeLine(front) == kind; });
}

std::size_t EmptyLines::LeaveOut(char* bytes, std::size_t size)
{
    char* out = bytes;
    for (std::size_t i = 0; i < size; ++i) {
        const bool isEnd = bytes[i] == '\n';
        if (!isEnd || !m_isAfterLine)
            *out++ = bytes[i];
        m_isAfterLine = isEnd && !m_isAfterLine;
    }
    return static_cast<std::size_t>(out - bytes);
}

} // namespace prepare
