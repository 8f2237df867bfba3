#include "cli/contents/PairReader.h"

#include "base/Numbers.h"
#include "cli/contents/LeadingNumbers.h"

#include <optional>

namespace plexorn {

namespace {

bool IsOtherForm(std::FILE* file)
{
    char head[prepare::TextSource::kFront];
    const std::size_t size = std::fread(head, 1, sizeof head, file);
    std::rewind(file);
    return prepare::TextSource::Decodes({head, size});
}

} // namespace

PairReader::PairReader(std::FILE* file)
    : m_source(file), m_text(m_source),
      m_stream(IsOtherForm(file) ? static_cast<CDxfSource&>(m_text) : m_source)
{
}

bool PairReader::NextLine(std::string_view& line)
{
    line = m_stream.getline();
    if (m_stream.IsExhausted())
        return false;
    ++m_line;
    return true;
}

bool PairReader::Next()
{
    std::string_view line;
    std::optional<std::int32_t> code;
    while (!code) {
        if (!NextLine(line))
            return false;
        code = LeadingInteger(line);
        if (!code && m_oddLines++ == 0)
            m_firstOddLine = m_line;
    }
    m_code = *code;
    if (!NextLine(line))
        return false;
    m_value = Trim(line);
    return true;
}

} // namespace plexorn
