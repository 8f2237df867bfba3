#include "prepare/drawing/ShiftJisGuess.h"

#include <algorithm>

namespace prepare {

namespace {

bool IsWithin(char c, unsigned char first, unsigned char last)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte >= first && byte <= last;
}

bool IsLead(char c)
{
    return IsWithin(c, 0x81, 0x9F) || IsWithin(c, 0xE0, 0xFC);
}

bool IsTrail(char c)
{
    return IsWithin(c, 0x40, 0x7E) || IsWithin(c, 0x80, 0xFC);
}

// ASCII, and the narrow letters of one byte.
bool IsSingle(char c)
{
    return IsWithin(c, 0, 0x7F) || IsWithin(c, 0xA1, 0xDF);
}

// What the code page of Western Europe, which is taken where a drawing names none, does not have.
bool IsNotWestern(char c)
{
    constexpr std::string_view kUnused = "\x81\x8D\x8F\x90\x9D";
    return kUnused.find(c) != std::string_view::npos;
}

} // namespace

void ShiftJisGuess::Take(std::string_view text, std::uint64_t line)
{
    if (!Count(text))
        ++m_others;
    else if (m_firstLine == 0 && std::any_of(text.begin(), text.end(), IsNotWestern))
        m_firstLine = line;
}

// Counts characters; false if the text is no Shift-JIS.
bool ShiftJisGuess::Count(std::string_view text)
{
    std::uint64_t following = 0, alone = 0, run = 0;
    const auto endRun = [&] {
        (run > 1 ? following : alone) += run;
        run = 0;
    };
    for (std::size_t at = 0; at < text.size(); ++at)
        if (IsLead(text[at])) {
            ++at;
            if (at == text.size() || !IsTrail(text[at]))
                return false;
            ++run;
        } else if (IsSingle(text[at])) {
            endRun();
        } else {
            return false;
        }
    endRun();
    m_following += following;
    m_alone += alone;
    return true;
}

std::uint64_t ShiftJisGuess::FirstLine() const
{
    constexpr std::uint64_t kWeightOfOthers = 10;
    return m_following > m_alone + kWeightOfOthers * m_others ? m_firstLine : 0;
}

} // namespace prepare
