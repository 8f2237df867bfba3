// The texts of messages.
#pragma once

#include "base/DXF_STRING.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>

// What replaces a "%s" or a "%d": a line of the file, a kept text, or a number.
class CDxfMessageArgument {
public:
    CDxfMessageArgument(std::string_view narrow) : m_kind(Kind::Narrow), m_narrow(narrow) {}
    CDxfMessageArgument(DXF_STRING wide) : m_kind(Kind::Wide), m_wide(wide) {}
    CDxfMessageArgument(std::int32_t number) : m_kind(Kind::Number), m_number(number) {}

private:
    friend class CDxfMessage;
    enum class Kind { Narrow, Wide, Number };

    Kind m_kind;
    std::string_view m_narrow;
    std::wstring_view m_wide;
    std::int32_t m_number = 0;
};

// A finished message, in a buffer of its own, so that it needs no memory from the heap.
class CDxfMessage {
public:
    // format contains only "%s" and "%d"; the next argument replaces each of them.
    CDxfMessage(const wchar_t* format, std::initializer_list<CDxfMessageArgument> arguments);

    const wchar_t* c_str() const { return m_text; }

private:
    // The longest message quotes a subclass marker and a value, both a line of at most 1023 characters.
    static constexpr std::size_t kCapacity = 2 * 1024 + 256;

    void Append(wchar_t character);
    void Append(const CDxfMessageArgument& argument);

    wchar_t m_text[kCapacity];
    std::size_t m_length = 0;
};
