#include "prepare/pairs/PairReader.h"

#include "base/Letters.h"

#include <new>

namespace prepare {

namespace {

// The format's codes are -5 to 1071. A number beyond is a value.
constexpr std::int32_t kLeastCode = -999;
constexpr std::int32_t kGreatestCode = 1099;

bool ParseStrictCode(std::string_view line, std::int32_t& code)
{
    std::int32_t value = 0;
    if (!ParseWholeCode(line, value) || value < kLeastCode || value > kGreatestCode)
        return false;
    code = value;
    return true;
}

bool IsNumber(std::string_view value)
{
    std::string_view text = Trim(value);
    if (text.empty() || text.back() > '9') // as nearly all names of records end
        return false;
    if (text.starts_with('+'))
        text.remove_prefix(1);
    return ParseWholeReal(text).has_value();
}

} // namespace

bool PairReader::IsCode(std::string_view line)
{
    std::int32_t code = 0;
    return ParseStrictCode(line, code);
}

bool PairReader::NextSlowly()
{
    CDxfLine line = m_stream.EmptyLine();
    return !m_hasEnded && TakeCodeLine(line) && NextAfter(line);
}

// Reads a line where a code belongs; false at the end.
bool PairReader::TakeCodeLine(CDxfLine& line)
{
    line = m_stream.getline();
    ++m_lines;
    NoteTrouble();
    if (!m_stream.IsExhausted())
        return true;
    --m_lines;
    return End();
}

// line has been read where a code belongs.
bool PairReader::NextAfter(std::string_view line)
{
    return TakeCode(line) && ReadValue();
}

// Steps to the next code, from line on; false at the end.
bool PairReader::TakeCode(std::string_view line)
{
    while (!ParseStrictCode(line, m_code)) {
        SkipLine(line);
        CDxfLine next = m_stream.EmptyLine();
        if (!TakeCodeLine(next))
            return false;
        line = next;
    }
    if (m_blankLines.count != 0) {
        if (m_skippedLines.count == 0 || m_blankLines.firstLine < m_skippedLines.firstLine)
            m_skippedLines.firstLine = m_blankLines.firstLine;
        m_skippedLines.count += m_blankLines.count;
        m_blankLines = {};
    }
    return true;
}

void PairReader::SkipLine(std::string_view line)
{
    Tally& tally = Trim(line).empty() ? m_blankLines : m_skippedLines;
    tally.Add(Lines());
}

// A pair that may be the end, or one with which something happened.
bool PairReader::LookAtPair()
{
    for (;;) {
        NoteTrouble();
        if (m_stream.IsExhausted()) {
            --m_lines;
            return End();
        }
        if (m_code == 0 && AreSameLetters(Trim(m_value), "EOF")) {
            m_hasEofPair = true;
            return End();
        }
        if (m_code != 0 || !IsNumber(m_value))
            return true;
        // The 0 is a value that has lost its code, or got another line before it.
        m_skippedLines.Add(Line());
        if (!TakeCode(m_value))
            return false;
        TakeValueLine();
    }
}

void PairReader::NoteTrouble()
{
    if (m_stream.TakeLineWasCut())
        m_cutLines.Add(Lines());
    if (m_stream.TakeLineHadNul())
        m_nulLines.Add(Lines());
    if (!m_stream.TakeReadFailed())
        return;
    if (m_text.IsShortOfMemory())
        throw std::bad_alloc();
    m_hasFailed = true;
}

bool PairReader::End()
{
    m_hasEnded = true;
    m_code = 0;
    m_value = m_stream.EmptyLine();
    return false;
}

} // namespace prepare
