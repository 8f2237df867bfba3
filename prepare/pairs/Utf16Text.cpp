#include "prepare/pairs/Utf16Text.h"

#include "base/Utf8.h"

namespace prepare {

void Utf16Text::Take(std::string_view bytes, std::string& text)
{
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (!m_hasByte)
            m_byte = byte;
        else
            TakeUnit(m_isBigEndian ? m_byte * 256u + byte : byte * 256u + m_byte, text);
        m_hasByte = !m_hasByte;
    }
}

void Utf16Text::TakeUnit(char32_t unit, std::string& text)
{
    const bool isLow = IsLowSurrogate(unit);
    if (m_high != 0) {
        AppendUtf8(text, isLow ? JoinSurrogates(m_high, unit) : m_high);
        m_high = 0;
        if (isLow)
            return;
    }
    if (IsHighSurrogate(unit))
        m_high = unit;
    else
        AppendUtf8(text, unit);
}

void Utf16Text::Finish(std::string& text)
{
    if (m_high != 0)
        AppendUtf8(text, m_high);
    m_high = 0;
}

} // namespace prepare
