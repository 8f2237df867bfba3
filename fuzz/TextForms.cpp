#include "TextForms.h"

#include "support/ModelTexts.h"

#include <cstddef>
#include <cstdint>

namespace {

bool IsDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

std::size_t CountDigits(std::wstring_view text)
{
    std::size_t count = 0;
    while (count < text.size() && IsDigit(text[count]))
        ++count;
    return count;
}

bool Take(std::wstring_view& text, std::wstring_view start)
{
    if (!text.starts_with(start))
        return false;
    text.remove_prefix(start.size());
    return true;
}

bool TakeDigits(std::wstring_view& text)
{
    const std::size_t count = CountDigits(text);
    text.remove_prefix(count);
    return count != 0;
}

bool TakeFixed(std::wstring_view& text, int decimals)
{
    if (Take(text, L"nan"))
        return true;
    Take(text, L"-");
    if (Take(text, L"inf"))
        return true;
    if (!TakeDigits(text) || !Take(text, L".") || CountDigits(text) != static_cast<std::size_t>(decimals))
        return false;
    text.remove_prefix(static_cast<std::size_t>(decimals));
    return true;
}

bool TakePair(std::wstring_view& text)
{
    return TakeFixed(text, 6) && Take(text, L",") && TakeFixed(text, 6);
}

bool TakeColourPart(std::wstring_view& text)
{
    const std::size_t count = CountDigits(text);
    if (count == 0 || count > 3 || (count > 1 && text[0] == L'0'))
        return false;
    int value = 0;
    for (std::size_t i = 0; i < count; ++i)
        value = value * 10 + (text[i] - L'0');
    text.remove_prefix(count);
    return value <= 255;
}

} // namespace

bool IsWellFormed(std::wstring_view text)
{
    while (!text.empty()) {
        const std::uint32_t value = TakeCharacter(text);
        if (value > 0x10FFFF || (value >= 0xD800 && value < 0xE000))
            return false;
    }
    return true;
}

bool IsFixed(std::wstring_view text, int decimals)
{
    return TakeFixed(text, decimals) && text.empty();
}

bool IsPositiveFixed6(std::wstring_view text)
{
    return IsFixed(text, 6) && IsDigit(text.front()) && text.find_first_of(L"123456789") != text.npos;
}

bool IsWidth4Fixed2(std::wstring_view text)
{
    const bool isPadded = text.size() == 4;
    while (isPadded && Take(text, L" ")) {
    }
    return IsFixed(text, 2) && (isPadded || text.size() >= 4);
}

bool IsGeneral(std::wstring_view text)
{
    if (Take(text, L"nan"))
        return text.empty();
    Take(text, L"-");
    if (Take(text, L"inf"))
        return text.empty();
    if (!TakeDigits(text) || (Take(text, L".") && !TakeDigits(text)))
        return false;
    if (Take(text, L"e") && !((Take(text, L"+") || Take(text, L"-")) && TakeDigits(text)))
        return false;
    return text.empty();
}

bool IsColour(std::wstring_view text)
{
    if (text == L"#ff0000" || text == L"#00ff00" || text == L"#0000ff")
        return true;
    return Take(text, L"RGB(") && TakeColourPart(text) && Take(text, L",") && TakeColourPart(text) &&
           Take(text, L",") && TakeColourPart(text) && text == L")";
}

bool IsDashArray(std::wstring_view text)
{
    if (text.empty())
        return true;
    do {
        if (text.starts_with(L'-') || !TakeFixed(text, 6))
            return false;
    } while (Take(text, L","));
    return text.empty();
}

bool IsPoints(std::wstring_view text)
{
    if (text.empty())
        return true;
    do {
        if (!TakePair(text))
            return false;
    } while (Take(text, L" "));
    return text.empty();
}

bool IsArcPath(std::wstring_view text)
{
    const auto flag = [&] { return Take(text, L"0") || Take(text, L"1"); };
    return Take(text, L"M ") && TakePair(text) && Take(text, L" A ") && TakePair(text) &&
           Take(text, L", 0 ") && flag() && Take(text, L",") && flag() && Take(text, L" ") &&
           TakePair(text) && text.empty();
}
