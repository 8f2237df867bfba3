#include "svghost/NumberText.h"

#include "base/Numbers.h"

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <string>

namespace svghost {
namespace {

constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,
                                   1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19};

// Where a number's parts are in its text.
template <class Char>
struct NumberShape {
    const Char* begin = nullptr; // after a leading '+'
    const Char* end = nullptr;
    bool isNegative = false;
    bool hasPoint = false;
    bool hasExponent = false;
    std::ptrdiff_t digits = 0;
    std::ptrdiff_t decimals = 0;
    std::uint64_t mantissa = 0; // right while there are at most 19 digits

    bool Read(const Char* at)
    {
        isNegative = *at == Char('-');
        begin = *at == Char('+') ? at + 1 : at;
        const Char* const whole = isNegative ? at + 1 : begin;
        end = ReadDigits(whole);
        digits = end - whole;
        if (*end == Char('.')) {
            hasPoint = true;
            const Char* const fraction = end + 1;
            end = ReadDigits(fraction);
            decimals = end - fraction;
            digits += decimals;
        }
        return digits > 0 && ReadExponent();
    }

    double Value() const { return IsExact() ? ExactValue() : ParseReal(std::string(begin, end)); }

    // The number's text without the zeros at its end that say nothing.
    std::basic_string_view<Char> ShortText() const
    {
        const Char* last = end;
        if (hasPoint && !hasExponent) {
            while (last[-1] == Char('0'))
                --last;
            if (last[-1] == Char('.'))
                --last;
            const Char* const first = isNegative ? begin + 1 : begin;
            if (last == first || (isNegative && last == first + 1 && *first == Char('0')))
                return {kZero, 1};
        }
        return {begin, static_cast<std::size_t>(last - begin)};
    }

private:
    static constexpr Char kZero[] = {Char('0')};

    bool IsExact() const { return !hasExponent && digits <= 19 && mantissa <= (std::uint64_t{1} << 53); }

    // The quotient of two numbers that are exact has one rounding: the result is the nearest double. Nearly
    // all numbers of a picture are such; by ParseReal alone the command takes a seventh more instructions.
    double ExactValue() const
    {
        const double number = static_cast<double>(mantissa) / kPowersOfTen[decimals];
        return isNegative ? -number : number;
    }

    static unsigned DigitOf(Char character) { return static_cast<unsigned>(character) - unsigned{'0'}; }

    const Char* ReadDigits(const Char* at)
    {
        std::uint64_t number = mantissa;
        for (unsigned digit = DigitOf(*at); digit < 10; digit = DigitOf(*++at))
            number = number * 10 + digit;
        mantissa = number;
        return at;
    }

    bool ReadExponent()
    {
        if (*end != Char('e') && *end != Char('E'))
            return true;
        hasExponent = true;
        const Char* at = end + 1;
        if (*at == Char('+') || *at == Char('-'))
            ++at;
        if (DigitOf(*at) >= 10)
            return false;
        while (DigitOf(*at) < 10)
            ++at;
        end = at;
        return true;
    }
};

} // namespace

bool IsDrawable(double number)
{
    return std::fabs(number) <= static_cast<double>(FLT_MAX);
}

template <class Char>
bool ScanNumber(const Char*& at, double& number, std::basic_string_view<Char>& text)
{
    NumberShape<Char> shape;
    if (!shape.Read(at))
        return false;
    number = shape.Value();
    if (!IsDrawable(number))
        return false;
    text = shape.ShortText();
    at = shape.end;
    return true;
}

template bool ScanNumber(const char*&, double&, std::string_view&);
template bool ScanNumber(const wchar_t*&, double&, std::wstring_view&);

bool ParseNumber(const wchar_t* text, double& number, std::wstring_view& shortText)
{
    while (*text == L' ')
        ++text;
    if (!ScanNumber(text, number, shortText))
        return false;
    while (*text == L' ')
        ++text;
    return *text == L'\0';
}

} // namespace svghost
