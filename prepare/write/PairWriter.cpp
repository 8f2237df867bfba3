#include "prepare/write/PairWriter.h"

#include "base/Numbers.h"

#include <algorithm>
#include <cmath>

namespace prepare {

namespace {

constexpr std::size_t kPart = std::size_t{1} << 16; // how much is passed on at once

// Up to here doubles and the integers below them are the same, and a value times a power of ten is exact
// enough to be rounded.
constexpr double kExact = 9e15;

constexpr double kPowers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                              1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

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
    const double scaled = value * kPowers[decimals];
    if (!(std::fabs(scaled) < kExact)) {
        AppendReal(text, value, PairWriter::kDigits);
        return;
    }
    auto whole = static_cast<std::int64_t>(std::nearbyint(std::fabs(scaled)));
    for (; decimals > 0 && whole % 10 == 0; --decimals)
        whole /= 10;
    if (value < 0 && whole != 0)
        text += '-';
    char digits[kLongestInteger];
    const auto size = static_cast<int>(FormatInteger(whole, digits) - digits);
    if (decimals == 0) {
        text.append(digits, static_cast<std::size_t>(size));
        return;
    }
    const int before = std::max(size - decimals, 0);
    if (before == 0)
        text += '0';
    text.append(digits, static_cast<std::size_t>(before));
    text += '.';
    text.append(static_cast<std::size_t>(std::max(decimals - size, 0)), '0');
    text.append(digits + before, static_cast<std::size_t>(size - before));
}

void AppendReal(std::string& text, double value, int digits)
{
    if (value == 0)
        value = 0; // without its sign
    char number[kLongestFormatted];
    text.append(number, FormatGeneral(value, digits, number));
}

PairWriter::PairWriter(const ByteFunction& write) : m_write(write)
{
    m_text.reserve(kPart + kPart / 4);
}

void PairWriter::Code(int code)
{
    char number[kLongestInteger];
    m_text.append(number, FormatInteger(code, number));
    m_text += '\n';
}

void PairWriter::EndLine()
{
    m_text += '\n';
    if (m_text.size() >= kPart)
        Flush();
}

void PairWriter::Flush()
{
    if (!m_isStopped && !m_text.empty())
        m_isStopped = !m_write(m_text);
    m_text.clear();
}

void PairWriter::Text(int code, std::string_view value)
{
    Code(code);
    m_text += value;
    EndLine();
}

void PairWriter::Integer(int code, std::int64_t value)
{
    Code(code);
    char number[kLongestInteger];
    m_text.append(number, FormatInteger(value, number));
    EndLine();
}

void PairWriter::Handle(int code, std::uint64_t value)
{
    Code(code);
    char number[16];
    m_text.append(number, FormatUpperHex(value, 1, number));
    EndLine();
}

void PairWriter::Real(int code, double value, int digits)
{
    Code(code);
    AppendReal(m_text, value, digits);
    EndLine();
}

void PairWriter::Fixed(int code, double value, int decimals)
{
    Code(code);
    AppendFixed(m_text, value, decimals);
    EndLine();
}

void PairWriter::Raw(std::string_view pairs)
{
    m_text += pairs;
    if (m_text.size() >= kPart)
        Flush();
}

bool PairWriter::Finish()
{
    Flush();
    return !m_isStopped;
}

} // namespace prepare
