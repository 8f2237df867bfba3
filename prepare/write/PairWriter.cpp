#include "prepare/write/PairWriter.h"

#include "base/Numbers.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

namespace prepare {

namespace {

constexpr std::size_t kPart = std::size_t{1} << 16; // how much is passed on at once
constexpr std::size_t kMostOfPair = 512;            // of a code and a number
static_assert(kMostOfPair > kLongestFormatted + kLongestInteger + 2);

// Up to here doubles and the integers below them are the same, and a value times a power of ten is exact
// enough to be rounded.
constexpr double kExact = 9e15;

constexpr double kPowers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                              1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

constexpr std::uint64_t kEightDigits = 100'000'000;
constexpr int kMostDigitsOfFixed = 16; // before and after the point
static_assert(kExact < 1e16);

// The digits of a number below 10^8, one in each byte, the first in the lowest; all are found at a time.
std::uint64_t DigitsOf(std::uint32_t value)
{
    const auto eachDivided = [](std::uint64_t lanes, std::uint64_t factor, int shift, std::uint64_t mask) {
        return ((lanes * factor) >> shift) & mask;
    };
    std::uint64_t digits = value / 10'000 | std::uint64_t{value % 10'000} << 32;
    const std::uint64_t hundreds = eachDivided(digits, 10'486, 20, 0x7F'0000'007F);
    digits = hundreds | (digits - 100 * hundreds) << 16;
    const std::uint64_t tens = eachDivided(digits, 103, 10, 0xF'000F'000F'000F);
    return tens | (digits - 10 * tens) << 8;
}

void PutText(char* out, std::uint64_t digits)
{
    const std::uint64_t text = digits + 0x3030'3030'3030'3030;
    std::memcpy(out, &text, sizeof(text));
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
    if (value < 0 && whole != 0)
        *out++ = '-';
    const std::uint64_t first =
        whole < kEightDigits ? 0 : DigitsOf(static_cast<std::uint32_t>(whole / kEightDigits));
    const std::uint64_t last = DigitsOf(static_cast<std::uint32_t>(whole % kEightDigits));
    const int zerosBefore = first != 0 ? std::countr_zero(first) / 8 : 8 + std::countr_zero(last) / 8;
    const int zerosAfter = last != 0 ? std::countl_zero(last) / 8 : 8 + std::countl_zero(first) / 8;
    char digits[3 * kMostDigitsOfFixed] = {}; // and as many that are copied, but do not count
    PutText(digits, first);
    PutText(digits + 8, last);
    const int point = kMostDigitsOfFixed - decimals;
    const int begin = std::min(zerosBefore, point - 1);
    const int decimalsLeft = std::max(decimals - zerosAfter, 0);
    // As many as there can be: what is too many is written over.
    std::memcpy(out, digits + begin, kMostDigitsOfFixed);
    out += point - begin;
    if (decimalsLeft == 0)
        return out;
    *out++ = '.';
    std::memcpy(out, digits + point, kMostDigitsOfFixed);
    return out + decimalsLeft;
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

void AppendReal(std::string& text, double value, int digits)
{
    char number[kLongestFormatted];
    text.append(number, PutReal(number, value, digits));
}

PairWriter::PairWriter(const ByteFunction& write)
    : m_write(write), m_text(new char[kPart + kMostOfPair]), m_end(m_text.get())
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
    const auto room = static_cast<std::size_t>(m_text.get() + kPart + kMostOfPair - m_end);
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
