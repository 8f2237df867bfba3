#include "prepare/write/PairWriter.h"

#include "base/Numbers.h"

#include <algorithm>

namespace prepare {

namespace {

constexpr std::size_t kPart = std::size_t{1} << 16; // how much is passed on at once
constexpr std::size_t kMostOfPair = 512;            // of a code and a number
static_assert(kMostOfPair > kLongestFormatted + kLongestInteger + 2);

// Puts the text of a number as PairWriter writes it; out has room for kLongestFormatted. Returns its end.
char* FormatReal(double value, int digits, char* out)
{
    return FormatGeneral(value == 0 ? 0 : value, digits, out); // 0 without its sign
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

void AppendReal(std::string& text, double value, int digits)
{
    char number[kLongestFormatted];
    text.append(number, FormatReal(value, digits, number));
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
    // Nearly all codes have two digits, which are put without a call.
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
    EndLine(FormatReal(value, digits, Code(code)));
}

void PairWriter::Fixed(int code, double value, int decimals)
{
    EndLine(FormatDecimals(value, decimals, Code(code)));
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
