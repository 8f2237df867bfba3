#include "reader/CDxfMessage.h"

#include "base/CodePage.h"
#include "base/Numbers.h"
#include "input/CDxfStream.h"

#include <cassert>

CDxfMessage::CDxfMessage(const wchar_t* format, std::initializer_list<CDxfMessageArgument> arguments)
{
    const CDxfMessageArgument* next = arguments.begin();
    for (; *format != L'\0'; ++format) {
        if (*format != L'%') {
            Append(*format);
            continue;
        }
        assert(next != arguments.end());
        Append(*next++);
        ++format; // the letter
    }
    assert(next == arguments.end());
    m_text[m_length] = L'\0';
}

void CDxfMessage::Append(wchar_t character)
{
    if (m_length < kCapacity - 1)
        m_text[m_length++] = character;
}

void CDxfMessage::Append(const CDxfMessageArgument& argument)
{
    char number[kLongestNumber];
    wchar_t wide[CDxfStream::kLongestLine];
    switch (argument.m_kind) {
    case CDxfMessageArgument::Kind::Narrow:
        for (const wchar_t character :
             std::wstring_view(wide, ToWide(argument.m_narrow.substr(0, CDxfStream::kLongestLine), wide)))
            Append(character);
        break;
    case CDxfMessageArgument::Kind::Wide:
        for (const wchar_t character : argument.m_wide)
            Append(character);
        break;
    case CDxfMessageArgument::Kind::Number:
        for (const char digit : std::string_view(number, FormatInteger(argument.m_number, number)))
            Append(static_cast<wchar_t>(digit));
        break;
    }
}
