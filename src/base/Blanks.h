// The single characters of a number and around it: blanks, digits and signs.
#pragma once

#include <cstddef>
#include <string_view>

inline bool IsBlank(char character)
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

template <class Character>
bool IsDigit(Character character)
{
    return character >= Character{'0'} && character <= Character{'9'};
}

// The value of a hexadecimal digit; -1 for any other character.
constexpr int HexDigit(char character)
{
    if (character >= '0' && character <= '9')
        return character - '0';
    const int small = character | 0x20;
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

inline const char* SkipBlanks(const char* at, const char* end)
{
    while (at != end && IsBlank(*at))
        ++at;
    return at;
}

// Removes white space (blank, tab, line feed, vertical tab, form feed, carriage return) from both ends.
inline std::string_view Trim(std::string_view text)
{
    const char* begin = text.data();
    const char* end = begin + text.size();
    while (end != begin && IsBlank(end[-1]))
        --end;
    begin = SkipBlanks(begin, end);
    return {begin, static_cast<std::size_t>(end - begin)};
}

// Steps over one sign; true when it is a minus.
inline bool TakeSign(const char*& at, const char* end)
{
    const bool negative = at != end && *at == '-';
    if (negative || (at != end && *at == '+'))
        ++at;
    return negative;
}
