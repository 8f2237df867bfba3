#include "prepare/write/PairWriter.h"

#include "base/Numbers.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace prepare {

namespace {

constexpr std::size_t kPart = std::size_t{1} << 16; // how much is passed on at once
constexpr std::size_t kMostOfPair = 512;            // of a code and a number
static_assert(kMostOfPair > kLongestFormatted + kLongestInteger + 2);
constexpr std::size_t kMostOfText = kMostOfPair - kLongestInteger - 2; // of those that need no second look

// Puts the text of a number as PairWriter writes it; out has room for kLongestFormatted. Returns its end.
char* FormatReal(double value, int digits, char* out)
{
    return FormatGeneral(value == 0 ? 0 : value, digits, out); // 0 without its sign
}

// A code and its line end.
struct CodeText {
    char text[4];
    std::uint8_t size;
};
using CodeTexts = std::array<CodeText, 1000>;

constexpr CodeTexts MakeCodeTexts(PairForm form)
{
    CodeTexts texts{};
    for (std::size_t code = 0; code < texts.size(); ++code) {
        const std::size_t digits = code < 10 ? 1 : code < 100 ? 2 : 3;
        std::size_t end = form == PairForm::Short ? digits : 3;
        texts[code] = {{' ', ' ', ' ', ' '}, static_cast<std::uint8_t>(end + 1)};
        texts[code].text[end] = '\n';
        for (std::size_t left = code, i = 0; i < digits; ++i, left /= 10)
            texts[code].text[--end] = static_cast<char>('0' + left % 10);
    }
    return texts;
}

constexpr CodeTexts kShortCodes = MakeCodeTexts(PairForm::Short);
constexpr CodeTexts kCodesInColumns = MakeCodeTexts(PairForm::Columns);

// Puts a code and its line end. Returns their end.
char* PutCode(char* out, int code, PairForm form)
{
    if (code < 0 || code >= static_cast<int>(kShortCodes.size())) {
        out = FormatInteger(code, out);
        *out++ = '\n';
        return out;
    }
    const CodeTexts& texts = form == PairForm::Short ? kShortCodes : kCodesInColumns;
    const CodeText& text = texts[static_cast<std::size_t>(code)];
    std::memcpy(out, text.text, sizeof(text.text));
    return out + text.size;
}

} // namespace

std::string Numbered(std::string_view prefix, std::size_t number)
{
    std::string name(prefix);
    name += std::to_string(number);
    return name;
}

std::string PairText(int code, std::string_view value, PairForm form)
{
    char text[kLongestInteger + 1];
    return std::string(text, PutCode(text, code, form)).append(value).append("\n");
}

void AppendReal(std::string& text, double value, int digits)
{
    char number[kLongestFormatted];
    text.append(number, FormatReal(value, digits, number));
}

PairWriter::PairWriter(const ByteFunction& write, PairForm form)
    : m_write(write), m_form(form), m_text(new char[kPart + kMostOfPair]), m_end(m_text.get())
{
}

// Puts a code and its line end, and leaves room for a value of a known length.
char* PairWriter::Code(int code)
{
    if (m_end >= m_text.get() + kPart) [[unlikely]]
        Flush();
    return PutCode(m_end, code, m_form);
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
    char* const text = Code(code);
    if (value.size() <= kMostOfText) [[likely]]
        return EndLine(std::copy(value.begin(), value.end(), text));
    m_end = text;
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
    char* const number = Code(code);
    EndLine(m_form == PairForm::Columns ? FormatWithPoint(value, decimals, number)
                                        : FormatDecimals(value, decimals, number));
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
