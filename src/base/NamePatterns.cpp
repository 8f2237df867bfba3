#include "base/NamePatterns.h"

#include "base/Letters.h"
#include "base/Utf8.h"

#include <cstddef>

namespace {

// Where the character after that of UTF-8 at a place begins.
std::size_t AfterCharacter(std::string_view text, std::size_t at)
{
    do
        ++at;
    while (at < text.size() && IsTrailByte(text[at]));
    return at;
}

} // namespace

// Goes back to the last star alone, as an earlier one could take no more than that one does.
bool MatchesPattern(std::string_view text, std::string_view pattern, Wildcards wildcards)
{
    std::size_t p = 0, t = 0, afterStar = std::string_view::npos, taken = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            afterStar = ++p;
            taken = t;
        } else if (p < pattern.size() && pattern[p] == '?' && wildcards == Wildcards::QuestionMark) {
            ++p;
            t = AfterCharacter(text, t);
        } else if (p < pattern.size() && SmallLetter(pattern[p]) == SmallLetter(text[t])) {
            ++p;
            ++t;
        } else if (afterStar != std::string_view::npos) {
            p = afterStar;
            t = taken = AfterCharacter(text, taken);
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}
