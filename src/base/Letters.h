// ASCII letters, whatever the locale; all other bytes stay as they are.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

constexpr char SmallLetter(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

constexpr char CapitalLetter(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

inline std::string InSmallLetters(std::string_view text)
{
    std::string small(text);
    std::transform(small.begin(), small.end(), small.begin(), SmallLetter);
    return small;
}

inline std::string InCapitals(std::string_view text)
{
    std::string capital(text);
    std::transform(capital.begin(), capital.end(), capital.begin(), CapitalLetter);
    return capital;
}

// Whether two texts differ in nothing but the case of their letters.
inline bool AreSameLetters(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char left, char right) { return SmallLetter(left) == SmallLetter(right); });
}

// Whether a text ends in another, whatever the case of their letters.
inline bool EndsInLetters(std::string_view text, std::string_view end)
{
    return text.size() >= end.size() && AreSameLetters(text.substr(text.size() - end.size()), end);
}
