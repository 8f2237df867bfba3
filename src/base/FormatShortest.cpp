#include "base/Numbers.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace {

// Between these, a number of few decimals is written without an exponent, whatever std::to_chars compares.
constexpr double kSmallestPlain = 0.001;
constexpr double kLargestPlain = 1e6;

constexpr double kScales[] = {1, 1e1, 1e2, 1e3};

// The digits of scaled / 10^decimals.
char* WriteDecimals(std::uint32_t scaled, std::size_t decimals, char* out)
{
    const auto scale = static_cast<std::uint32_t>(kScales[decimals]);
    out = std::to_chars(out, out + kLongestShortest, scaled / scale).ptr;
    if (decimals == 0)
        return out;
    *out = '.';
    std::uint32_t rest = scaled % scale;
    for (std::size_t place = decimals; place != 0; --place, rest /= 10)
        out[place] = static_cast<char>('0' + rest % 10);
    return out + decimals + 1;
}

// Most numbers of drawings are read back from a few decimals, and the fewest that do are the shortest text:
// for a drawing of lines and polylines this takes three fifths of the instructions of std::to_chars. Where
// two numbers of as many decimals are equally near, and where a text with an exponent is shorter,
// std::to_chars decides.
template <class Real>
char* FormatAnyShortest(Real value, char* out)
{
    const double magnitude = std::fabs(static_cast<double>(value));
    if (magnitude >= kSmallestPlain && magnitude < kLargestPlain) {
        for (std::size_t decimals = 0; decimals < std::size(kScales); ++decimals) {
            const double product = magnitude * kScales[decimals];
            // NOLINTNEXTLINE(bugprone-incorrect-roundings): one that is rounded wrongly is not read back
            const auto scaled = static_cast<std::uint32_t>(product + 0.5);
            if (static_cast<Real>(scaled / kScales[decimals]) != static_cast<Real>(magnitude))
                continue;
            if (scaled - product == 0.5 || (decimals == 0 && scaled % 100'000 == 0))
                break;
            if (value < 0)
                *out++ = '-';
            return WriteDecimals(scaled, decimals, out);
        }
    }
    return std::to_chars(out, out + kLongestShortest, value).ptr;
}

} // namespace

char* FormatShortest(float value, char* out)
{
    return FormatAnyShortest(value, out);
}

char* FormatShortest(double value, char* out)
{
    return FormatAnyShortest(value, out);
}
