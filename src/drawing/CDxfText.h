// Texts for the host, made without memory of their own.
#pragma once

#include "base/Numbers.h"

#include <cassert>
#include <cstddef>

// A wide text of at most so many characters, built piece by piece and zero-terminated after each.
template <std::size_t capacity>
class CDxfText {
public:
    // cppcheck-suppress uninitMemberVar; what has not been written is never read
    CDxfText() { Terminate(); }
    CDxfText(const CDxfText&) = delete;
    CDxfText& operator=(const CDxfText&) = delete;

    const wchar_t* c_str() const { return m_text; }

    CDxfText& Add(const wchar_t* text)
    {
        while (*text != L'\0')
            m_text[m_length++] = *text++;
        return Terminate();
    }
    CDxfText& AddFixed6(double value) { return AddNumber(FormatFixed6(value, m_number)); }
    CDxfText& AddWidth4Fixed2(double value) { return AddNumber(FormatWidth4Fixed2(value, m_number)); }
    CDxfText& AddGeneral(double value) { return AddNumber(FormatGeneral(value, m_number)); }

private:
    CDxfText& AddNumber(const char* end)
    {
        for (const char* at = m_number; at != end; ++at)
            m_text[m_length++] = static_cast<wchar_t>(*at);
        return Terminate();
    }
    CDxfText& Terminate()
    {
        assert(m_length <= capacity);
        m_text[m_length] = L'\0';
        return *this;
    }

    char m_number[kLongestNumber];
    wchar_t m_text[capacity + 1]; // not cleared: texts are short and most of it stays unused
    std::size_t m_length = 0;
};

// One number.
using CDxfNumberText = CDxfText<kLongestNumber>;
