// Single characters of a number.
#pragma once

inline bool IsBlank(char character)
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

template <class Character>
bool IsDigit(Character character)
{
    return character >= Character{'0'} && character <= Character{'9'};
}

inline const char* SkipBlanks(const char* at, const char* end)
{
    while (at != end && IsBlank(*at))
        ++at;
    return at;
}

// Steps over one sign; true when it is a minus.
inline bool TakeSign(const char*& at, const char* end)
{
    const bool negative = at != end && *at == '-';
    if (negative || (at != end && *at == '+'))
        ++at;
    return negative;
}
