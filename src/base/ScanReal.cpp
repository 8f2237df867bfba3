#include "base/ScanReal.h"

#include "base/Decimals.h"
#include "base/Numbers.h"
#include "base/Sse2.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace {

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

#if defined(PLEXORN_SSE2)
    // The same for the usual number, of up to eight digits before the point and as many after it; false for
    // any other.
    bool ReadUsual(const char* at)
    {
        isNegative = *at == '-';
        begin = at;
        const char* const first = at + isNegative;
        const __m128i values =
            _mm_sub_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(first)), _mm_set1_epi8('0'));
        const __m128i isDigit = _mm_cmpeq_epi8(_mm_min_epu8(values, _mm_set1_epi8(9)), values);
        const unsigned digitsAt = static_cast<unsigned>(_mm_movemask_epi8(isDigit));
        const int whole = std::countr_one(digitsAt);
        if (whole == 0 || whole > 8 || first[whole] != '.')
            return false;
        const int after = std::countr_one(digitsAt >> (whole + 1));
        end = first + whole + 1 + after;
        if (after == 0 || after > 8 || end > first + 15 || (*end | 0x20) == 'e')
            return false;
        hasPoint = true;
        digits = whole + after;
        decimals = after;
        mantissa =
            ValueOfDigits(first, whole) * kWholePowersOfTen[after] + ValueOfDigits(first + whole + 1, after);
        return true;
    }
#endif

    double Value() const
    {
        return IsExact() ? ExactValue() : ParseReal(std::string(begin, end));
    }

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

    bool IsExact() const
    {
        return !hasExponent && digits <= 19 && mantissa <= (std::uint64_t{1} << 53);
    }

    // The quotient of two numbers that are exact has one rounding: the result is the nearest double. Nearly
    // all numbers of a picture are such; by ParseReal alone the command takes a seventh more instructions.
    double ExactValue() const
    {
        const double number = static_cast<double>(mantissa) / kPowersOfTen[decimals];
        return isNegative ? -number : number;
    }

#if defined(PLEXORN_SSE2)
    static constexpr std::uint64_t kWholePowersOfTen[] = {1,       10,        100,        1'000,      10'000,
                                                          100'000, 1'000'000, 10'000'000, 100'000'000};

    // Of one to eight digits, two by two, then four by four, then all.
    static std::uint64_t ValueOfDigits(const char* first, int count)
    {
        std::uint64_t text;
        std::memcpy(&text, first, sizeof(text));
        text = (text << (8 * (8 - count))) & 0x0F0F'0F0F'0F0F'0F0F;
        text = ((text * (10 << 8 | 1)) >> 8) & 0x00FF'00FF'00FF'00FF;
        text = ((text * (100 << 16 | 1)) >> 16) & 0x0000'FFFF'0000'FFFF;
        return (text * (std::uint64_t{10'000} << 32 | 1)) >> 32;
    }
#endif

    static unsigned DigitOf(Char character)
    {
        return static_cast<unsigned>(character) - unsigned{'0'};
    }

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

template <class Char>
const Char* ScanReal(const Char* text, double& value, std::basic_string_view<Char>& shortText)
{
    NumberShape<Char> shape;
    if (!shape.Read(text))
        return nullptr;
    value = shape.Value();
    shortText = shape.ShortText();
    return shape.end;
}

const char* ScanRealAhead(const char* text, double& value, std::string_view& shortText)
{
#if defined(PLEXORN_SSE2)
    NumberShape<char> shape;
    if (shape.ReadUsual(text)) [[likely]] {
        value = shape.Value();
        shortText = shape.ShortText();
        return shape.end;
    }
#endif
    return ScanReal(text, value, shortText);
}

template const char* ScanReal(const char*, double&, std::string_view&);
template const wchar_t* ScanReal(const wchar_t*, double&, std::wstring_view&);
