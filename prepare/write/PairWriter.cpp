#include "prepare/write/PairWriter.h"

#include "base/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <iterator>

namespace prepare {

namespace {

constexpr std::size_t kPart = std::size_t{1} << 16; // how much is passed on at once
constexpr std::size_t kMost = 512;                  // of a code and a number
static_assert(kMost > kLongestFormatted + kLongestInteger + 2);

// Up to here doubles and the integers below them are the same, and a value times a power of ten is exact
// enough to be rounded.
constexpr double kExact = 9e15;

constexpr double kPowers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                              1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// "00" to "99".
constexpr auto kPairsOfDigits = [] {
    std::array<char, 200> digits{};
    for (std::size_t i = 0; i < digits.size(); ++i)
        digits[i] = static_cast<char>('0' + (i % 2 == 0 ? i / 20 : i / 2 % 10));
    return digits;
}();

// Puts the digits of value, at least that many, before end; returns where they begin.
char* PutDigitsBefore(char* end, std::uint64_t value, int atLeast)
{
    char* begin = end;
    while (value >= 100) {
        begin -= 2;
        std::memcpy(begin, kPairsOfDigits.data() + 2 * (value % 100), 2);
        value /= 100;
    }
    for (; value != 0 || end - begin < atLeast; value /= 10)
        *--begin = static_cast<char>('0' + value % 10);
    return begin;
}

// Puts the text of a number as PairWriter writes it; out has room for kLongestFormatted. Returns its end.
char* PutReal(char* out, double value, int digits)
{
    return FormatGeneral(value == 0 ? 0 : value, digits, out); // 0 without its sign
}

char* PutFixed(char* out, double value, int decimals)
{
    const double scaled = std::fabs(value * kPowers[decimals]);
    if (!(scaled < kExact))
        return PutReal(out, value, PairWriter::kDigits);
    const auto whole = static_cast<std::uint64_t>(std::nearbyint(scaled));
    char digits[kLongestInteger];
    const char* end = std::end(digits);
    const char* const point = end - decimals;
    const char* const begin = PutDigitsBefore(std::end(digits), whole, decimals + 1);
    while (end > point && end[-1] == '0')
        --end;
    if (value < 0 && whole != 0)
        *out++ = '-';
    out = std::copy(begin, point, out);
    if (end == point)
        return out;
    *out++ = '.';
    return std::copy(point, end, out);
}

} // namespace

std::string Numbered(std::string_view prefix, std::size_t number)
{
    std::string name(prefix);
    name += std::to_string(number);
    return name;
}

std::string PairText(int code, std::string_view value)
{
    return std::to_string(code).append("\n").append(value).append("\n");
}

double PowerOfTen(int power)
{
    double result = 1;
    for (int rest = std::abs(power); rest > 0; rest -= 15)
        result *= kPowers[std::min(rest, 15)];
    return power < 0 ? 1 / result : result;
}

double RoundedTo(double value, int decimals)
{
    const double scaled = value * kPowers[decimals];
    return std::fabs(scaled) < kExact ? std::nearbyint(scaled) / kPowers[decimals] : value;
}

void AppendFixed(std::string& text, double value, int decimals)
{
    char number[kLongestFormatted];
    text.append(number, PutFixed(number, value, decimals));
}

void AppendReal(std::string& text, double value, int digits)
{
    char number[kLongestFormatted];
    text.append(number, PutReal(number, value, digits));
}

PairWriter::PairWriter(const ByteFunction& write)
    : m_write(write), m_text(new char[kPart + kMost]), m_end(m_text.get())
{
}

// Puts a code and its line end, and leaves room for a value of a known length.
char* PairWriter::Code(int code)
{
    if (m_end >= m_text.get() + kPart) [[unlikely]]
        Flush();
    char* out = m_end;
    if (code >= 10 && code < 100) {
        *out++ = static_cast<char>('0' + code / 10);
        *out++ = static_cast<char>('0' + code % 10);
    } else {
        out = FormatInteger(code, out);
    }
    *out++ = '\n';
    return out;
}

// Ends the value, and with it the pair, at end.
void PairWriter::EndLine(char* end)
{
    *end++ = '\n';
    m_end = end;
}

void PairWriter::Flush()
{
    Pass({m_text.get(), static_cast<std::size_t>(m_end - m_text.get())});
    m_end = m_text.get();
}

void PairWriter::Pass(std::string_view text)
{
    if (!m_isStopped && !text.empty())
        m_isStopped = !m_write(text);
}

void PairWriter::Text(int code, std::string_view value)
{
    m_end = Code(code);
    Raw(value);
    Raw("\n");
}

void PairWriter::Integer(int code, std::int64_t value)
{
    EndLine(FormatInteger(value, Code(code)));
}

void PairWriter::Handle(int code, std::uint64_t value)
{
    EndLine(FormatUpperHex(value, 1, Code(code)));
}

void PairWriter::Real(int code, double value, int digits)
{
    EndLine(PutReal(Code(code), value, digits));
}

void PairWriter::Fixed(int code, double value, int decimals)
{
    EndLine(PutFixed(Code(code), value, decimals));
}

void PairWriter::Raw(std::string_view pairs)
{
    const auto room = static_cast<std::size_t>(m_text.get() + kPart + kMost - m_end);
    if (pairs.size() > room) {
        Flush();
        if (pairs.size() > kPart)
            return Pass(pairs);
    }
    m_end = std::copy(pairs.begin(), pairs.end(), m_end);
}

bool PairWriter::Finish()
{
    Flush();
    return !m_isStopped;
}

void BeginSection(PairWriter& pairs, const char* name)
{
    pairs.Text(0, "SECTION");
    pairs.Text(2, name);
}

} // namespace prepare
