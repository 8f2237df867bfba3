// Whether the texts of a drawing that names no code page are Japanese.
#pragma once

#include <cstdint>
#include <string_view>

namespace prepare {

// Programs from Japan write Shift-JIS, and some do not say so. Its characters of two bytes mostly follow one
// another, and some of their bytes are no characters in Western Europe.
class ShiftJisGuess {
public:
    // Each takes a text with bytes beyond ASCII, the second one that is UTF-8.
    void Take(std::string_view text, std::uint64_t line);
    void TakeUtf8() { ++m_others; }

    // The line of the first text that shows it; 0 if texts are not Shift-JIS for all that is known.
    std::uint64_t FirstLine() const;

private:
    bool Count(std::string_view text);

    std::uint64_t m_firstLine = 0;
    std::uint64_t m_following = 0; // characters of two bytes that follow or precede another one
    std::uint64_t m_alone = 0;     // those between others
    std::uint64_t m_others = 0;    // texts that are something else
};

} // namespace prepare
