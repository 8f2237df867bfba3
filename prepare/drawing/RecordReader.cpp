#include "prepare/drawing/RecordReader.h"

#include "base/Letters.h"
#include "base/Utf8.h"
#include "prepare/drawing/Encoding.h"
#include "prepare/drawing/UnicodeEscape.h"

#include <algorithm>
#include <cstring>

namespace prepare {

namespace {

constexpr std::string_view kR2007 = "AC1021";

bool IsAscii(std::string_view text)
{
    unsigned char all = 0;
    for (const char c : text)
        all = static_cast<unsigned char>(all | static_cast<unsigned char>(c));
    return all < 0x80;
}

} // namespace

bool IsCodePageUnknown(std::string_view name, std::string_view version)
{
    return name.empty() && version < kR2007;
}

RecordReader::RecordReader(CDxfSource& source, std::string_view encoding, Drawing& itsDrawing, Report* report)
    : drawing(itsDrawing), m_pairs(source), m_report(report), m_hasEncoding(!encoding.empty()),
      m_codePage(std::make_unique<NamedCodePage>(NumberedCodePage(encoding)))
{
}

void RecordReader::SetCodePage(std::string_view name, std::string_view version)
{
    if (m_hasEncoding)
        return;
    m_codePage = std::make_unique<NamedCodePage>(NumberedCodePage(name));
    m_isOtherPage = !name.empty() && !version.empty() && version < kR2007 && !IsUtf8(name);
    m_mustGuess = IsCodePageUnknown(name, version);
    if (!m_mustGuess)
        drawing.guess = {}; // what came before the header was nothing to guess from
}

std::string_view RecordReader::Word()
{
    const std::string_view word = Trim(Value());
    if (std::none_of(word.begin(), word.end(), [](char c) { return c >= 'a' && c <= 'z'; }))
        return word;
    m_word = InCapitals(word);
    return m_word;
}

void RecordReader::SkipGroup()
{
    if (!Trim(Value()).starts_with('{'))
        return;
    constexpr std::int32_t kFirstXdata = 1000;
    while (NextField()) {
        if (Code() == 102 && Trim(Value()) == "}")
            return;
        if (Code() >= kFirstXdata)
            return Unread();
    }
}

Handle RecordReader::ReadHandle(std::string_view value) const
{
    return ParseHex(Trim(value)).value_or(0);
}

std::string RecordReader::Text(std::string_view value)
{
    while (value.ends_with('\r'))
        value.remove_suffix(1);
    return IsAscii(value) ? std::string(value) : Decoded(value);
}

// In UTF-8, with a word in the report on what is not as the file says.
std::string RecordReader::Decoded(std::string_view value)
{
    std::string text = m_codePage->Utf8(value);
    if (m_mustGuess && text != value)
        drawing.guess.Take(value, Line() + 1);
    if (text == value) {
        if (m_mustGuess)
            drawing.guess.TakeUtf8();
        if (m_isOtherPage)
            Note(Finding::Repaired, "file", "a text is UTF-8, not in the drawing's code page", Line() + 1);
        return text;
    }
    std::uint64_t replaced = 0;
    for (std::size_t at = text.find(kReplacementText); at != std::string::npos; ++replaced)
        at = text.find(kReplacementText, at + kReplacementText.size());
    if (replaced != 0)
        Note(Finding::Repaired, "file", "a byte that is no character of the code page is U+FFFD", Line() + 1,
             replaced);
    return text;
}

NameId RecordReader::Name(std::string_view value)
{
    const std::string_view name = Trim(value);
    if (name.find('\\') != std::string_view::npos)
        return drawing.names.Of(NameWithoutEscapes(IsAscii(name) ? std::string(name) : Decoded(name)));
    return IsAscii(name) ? drawing.names.Of(name) : drawing.names.Of(Decoded(name));
}

// ParseReal gives 0 for words and 1 for "1.#QNAN", as some programs write invalid numbers.
double RecordReader::LookAtReal(std::string_view value, double real)
{
    if (real == 0 && EndsInDigit(value))
        return real;
    if (const Fault fault = FaultOf(value, real); fault != Fault::None) {
        m_fault = fault;
        return 0;
    }
    if (real == 0)
        LookAtZero(value);
    return real;
}

// Empty values are 0 to all programs.
void RecordReader::LookAtZero(std::string_view value)
{
    const bool hasDigits = value.find_first_of("0123456789") != std::string_view::npos;
    m_hasWord = m_hasWord || (!hasDigits && !Trim(value).empty());
}

void RecordReader::NoteWords(std::string_view type, std::uint64_t line)
{
    if (TakeHasWord())
        Note(Finding::Repaired, type, "a value is not a number: 0 is read", line);
}

void RecordReader::NoteZeros(std::string_view type, std::uint64_t line)
{
    const Fault fault = TakeFault();
    m_hasWord = m_hasWord || fault == Fault::NotFinite;
    NoteWords(type, line);
    if (fault == Fault::OutOfRange)
        Note(Finding::Repaired, type, "a number is beyond 1e30: 0 is read", line);
}

} // namespace prepare
