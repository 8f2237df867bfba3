#include "svghost/NumberText.h"

#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace svghost {
namespace {

constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,
                                   1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19};

template <class Char>
bool isDigit(Char character)
{
    return character >= Char('0') && character <= Char('9');
}

// Where a number's parts stand in its text.
template <class Char>
struct NumberShape {
    const Char* begin = nullptr; // behind a leading '+'
    const Char* end = nullptr;
    bool negative = false;
    bool point = false;
    bool exponent = false;
    int digits = 0;
    int decimals = 0;
    std::uint64_t mantissa = 0; // good while there are at most 19 digits

    bool read(const Char* at)
    {
        negative = *at == Char('-');
        begin = *at == Char('+') ? at + 1 : at;
        end = readDigits(negative ? at + 1 : begin);
        if (*end == Char('.')) {
            point = true;
            const int whole = digits;
            end = readDigits(end + 1);
            decimals = digits - whole;
        }
        return digits > 0 && readExponent();
    }

    // The quotient of two numbers that are exact has one rounding: the result is the nearest double.
    bool exact(double& number) const
    {
        if (exponent || digits > 19 || mantissa > (std::uint64_t(1) << 53))
            return false;
        number = static_cast<double>(mantissa) / kPowersOfTen[decimals];
        number = negative ? -number : number;
        return true;
    }

private:
    const Char* readDigits(const Char* at)
    {
        for (; isDigit(*at); ++at, ++digits)
            mantissa = mantissa * 10 + static_cast<std::uint64_t>(*at - Char('0'));
        return at;
    }

    bool readExponent()
    {
        if (*end != Char('e') && *end != Char('E'))
            return true;
        exponent = true;
        const Char* at = end + 1;
        if (*at == Char('+') || *at == Char('-'))
            ++at;
        if (!isDigit(*at))
            return false;
        while (isDigit(*at))
            ++at;
        end = at;
        return true;
    }
};

void trimZeros(std::string& out, std::size_t begin)
{
    out.erase(out.find_last_not_of('0') + 1);
    if (out.back() == '.')
        out.pop_back();
    const std::string_view rest = std::string_view(out).substr(begin);
    if (rest.empty() || rest == "-" || rest == "-0") {
        out.resize(begin);
        out += '0';
    }
}

} // namespace

bool isDrawable(double number)
{
    return std::fabs(number) <= static_cast<double>(FLT_MAX);
}

template <class Char>
bool scanNumber(const Char*& at, double& number, std::string& out)
{
    NumberShape<Char> shape;
    if (!shape.read(at))
        return false;
    const std::size_t begin = out.size();
    out.resize(begin + static_cast<std::size_t>(shape.end - shape.begin));
    char* place = out.data() + begin;
    for (const Char* from = shape.begin; from != shape.end; ++from)
        *place++ = static_cast<char>(*from);
    bool good = shape.exact(number);
    if (!good)
        good = std::from_chars(out.data() + begin, out.data() + out.size(), number).ec == std::errc();
    if (!good || !isDrawable(number)) {
        out.resize(begin);
        return false;
    }
    if (shape.point && !shape.exponent)
        trimZeros(out, begin);
    at = shape.end;
    return true;
}

template bool scanNumber(const char*&, double&, std::string&);
template bool scanNumber(const wchar_t*&, double&, std::string&);

bool parseNumber(const wchar_t* text, double& number, std::string& out)
{
    while (*text == L' ')
        ++text;
    const std::size_t begin = out.size();
    if (!scanNumber(text, number, out))
        return false;
    while (*text == L' ')
        ++text;
    if (*text == L'\0')
        return true;
    out.resize(begin);
    return false;
}

namespace {

template <class Number>
void appendShortest(std::string& out, Number number)
{
    char text[32];
    // Adding 0 makes a negative zero positive.
    const auto result = std::to_chars(text, text + sizeof text, number + Number(0));
    out.append(text, static_cast<std::size_t>(result.ptr - text));
}

} // namespace

void appendNumber(std::string& out, float number)
{
    appendShortest(out, number);
}

void appendNumber(std::string& out, double number)
{
    appendShortest(out, number);
}

} // namespace svghost
