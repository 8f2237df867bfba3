// ASCII letters, whatever the locale; all other bytes stay as they are.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

template <class Character>
constexpr Character SmallLetter(Character character)
{
    return character >= Character{'A'} && character <= Character{'Z'}
               ? static_cast<Character>(character - 'A' + 'a')
               : character;
}

constexpr char CapitalLetter(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

inline std::string InSmallLetters(std::string_view text)
{
    std::string small(text);
    std::transform(small.begin(), small.end(), small.begin(), SmallLetter<char>);
    return small;
}

inline std::string InCapitals(std::string_view text)
{
    std::string capital(text);
    std::transform(capital.begin(), capital.end(), capital.begin(), CapitalLetter);
    return capital;
}

// Whether two texts differ in nothing but the case of their letters.
template <class Character>
bool AreSameLettersOf(std::basic_string_view<Character> a, std::basic_string_view<Character> b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](Character left, Character right) {
        return SmallLetter(left) == SmallLetter(right);
    });
}

inline bool AreSameLetters(std::string_view a, std::string_view b)
{
    return AreSameLettersOf(a, b);
}

inline bool AreSameLetters(std::wstring_view a, std::wstring_view b)
{
    return AreSameLettersOf(a, b);
}

// Whether a text ends in another, whatever the case of their letters.
inline bool EndsInLetters(std::string_view text, std::string_view end)
{
    return text.size() >= end.size() && AreSameLetters(text.substr(text.size() - end.size()), end);
}
