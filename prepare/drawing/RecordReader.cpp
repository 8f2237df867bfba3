#include "prepare/drawing/RecordReader.h"

#include "base/Letters.h"
#include "prepare/drawing/Encoding.h"

#include <algorithm>
#include <cstring>

namespace prepare {

namespace {

bool IsAscii(std::string_view text)
{
    unsigned char all = 0;
    for (const char c : text)
        all = static_cast<unsigned char>(all | static_cast<unsigned char>(c));
    return all < 0x80;
}

} // namespace

RecordReader::RecordReader(CDxfSource& source, std::string_view encoding, Drawing& itsDrawing, Report* report)
    : drawing(itsDrawing), m_pairs(source), m_report(report), m_hasEncoding(!encoding.empty()),
      m_codePage(std::make_unique<NamedCodePage>(NumberedCodePage(encoding)))
{
}

void RecordReader::SetCodePage(std::string_view name)
{
    if (!m_hasEncoding)
        m_codePage = std::make_unique<NamedCodePage>(NumberedCodePage(name));
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

std::string RecordReader::Text(std::string_view value) const
{
    while (value.ends_with('\r'))
        value.remove_suffix(1);
    return IsAscii(value) ? std::string(value) : m_codePage->Utf8(value);
}

NameId RecordReader::Name(std::string_view value)
{
    const std::string_view name = Trim(value);
    return IsAscii(name) ? drawing.names.Of(name) : drawing.names.Of(m_codePage->Utf8(name));
}

// ParseReal gives 0 for words and 1 for "1.#QNAN", as some programs write invalid numbers.
double RecordReader::LookAtReal(std::string_view value, double real)
{
    const bool isWord = value.find_first_of("#nNiI") != std::string_view::npos;
    if (!isWord && std::isfinite(real))
        return real;
    m_isBroken = true;
    return 0;
}

} // namespace prepare
