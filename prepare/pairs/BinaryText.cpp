#include "prepare/pairs/BinaryText.h"

#include "base/Numbers.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

namespace prepare {

namespace {

// Longer texts are cut: as long as the longest line of a text drawing, and more, so that the cut is seen.
constexpr std::size_t kLongestText = (std::size_t{64} << 10) + 1;

enum class Form : std::uint8_t { Unknown, Text, Real, Bool, Int16, Int32, Int64, Chunk };

struct FormRange {
    std::int32_t first;
    std::int32_t last;
    Form form;
};

// What the values of each group code are, as the format says.
constexpr FormRange kForms[] = {
    {0, 9, Form::Text},       {10, 59, Form::Real},      {60, 79, Form::Int16},     {80, 89, Form::Int16},
    {90, 99, Form::Int32},    {100, 109, Form::Text},    {110, 149, Form::Real},    {160, 169, Form::Int64},
    {170, 179, Form::Int16},  {210, 239, Form::Real},    {270, 289, Form::Int16},   {290, 299, Form::Bool},
    {300, 309, Form::Text},   {310, 319, Form::Chunk},   {320, 369, Form::Text},    {370, 389, Form::Int16},
    {390, 399, Form::Text},   {400, 409, Form::Int16},   {410, 419, Form::Text},    {420, 429, Form::Int32},
    {430, 439, Form::Text},   {440, 459, Form::Int32},   {460, 469, Form::Real},    {470, 481, Form::Text},
    {999, 999, Form::Text},   {1000, 1003, Form::Text},  {1004, 1004, Form::Chunk}, {1005, 1009, Form::Text},
    {1010, 1059, Form::Real}, {1060, 1070, Form::Int16}, {1071, 1071, Form::Int32},
};

Form FormOf(std::int32_t code)
{
    const auto found = std::find_if(std::begin(kForms), std::end(kForms), [code](const FormRange& range) {
        return code >= range.first && code <= range.last;
    });
    return found == std::end(kForms) ? Form::Unknown : found->form;
}

// A number of so many bytes, the lowest first.
std::uint64_t LittleEndian(std::string_view bytes, std::size_t size)
{
    std::uint64_t value = 0;
    for (std::size_t i = size; i-- > 0;)
        value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
}

void AppendNumber(std::string& text, std::int64_t value)
{
    char digits[kLongestInteger];
    text.append(digits, FormatInteger(value, digits));
}

void AppendReal(std::string& text, double value)
{
    char digits[kLongestShortest];
    text.append(digits, FormatShortest(value, digits));
}

void AppendHex(std::string& text, std::string_view bytes)
{
    for (const char c : bytes) {
        char digits[2];
        text.append(digits, FormatUpperHex(static_cast<unsigned char>(c), 2, digits));
    }
}

} // namespace

void BinaryText::Take(std::string_view bytes, std::string& text)
{
    if (m_isBroken)
        return;
    m_waiting += bytes;
    std::string_view rest = m_waiting;
    if (!m_hasBegun) {
        if (rest.size() < kSentinel.size() + 2)
            return;
        // The first pair is a text, of code 0 or 999: with codes of one byte, that of the text follows at
        // once.
        rest.remove_prefix(kSentinel.size());
        m_hasWideCodes = rest[0] == '\0' ? rest[1] == '\0' : rest[0] != '\xFF';
        m_hasBegun = true;
    }
    while (const std::size_t taken = TakePair(rest, text))
        rest.remove_prefix(taken);
    m_waiting = std::string(m_isBroken ? std::string_view() : rest);
}

void BinaryText::Finish(std::string&)
{
    m_waiting.clear();
}

std::size_t BinaryText::TakePair(std::string_view bytes, std::string& text)
{
    if (m_skipsString) {
        const std::size_t end = bytes.find('\0');
        m_skipsString = end == std::string_view::npos;
        return m_skipsString ? bytes.size() : end + 1;
    }
    std::int32_t code = 0;
    const std::size_t codeSize = TakeCode(bytes, code);
    if (codeSize == 0)
        return 0;
    const std::size_t before = text.size();
    AppendNumber(text, code);
    text += '\n';
    const std::size_t size = TakeValue(code, bytes.substr(codeSize), text);
    if (size == 0) {
        text.resize(before);
        return 0;
    }
    text += '\n';
    return codeSize + size;
}

std::size_t BinaryText::TakeCode(std::string_view bytes, std::int32_t& code)
{
    const std::size_t escape = !m_hasWideCodes && !bytes.empty() && bytes[0] == '\xFF' ? 1 : 0;
    const std::size_t size = m_hasWideCodes || escape != 0 ? 2 : 1;
    if (bytes.size() < escape + size)
        return 0;
    const std::uint64_t value = LittleEndian(bytes.substr(escape), size);
    code = size == 2 ? static_cast<std::int16_t>(value) : static_cast<std::int32_t>(value);
    return escape + size;
}

std::size_t BinaryText::TakeValue(std::int32_t code, std::string_view bytes, std::string& text)
{
    const auto number = [&](std::size_t size, auto type) -> std::size_t {
        if (bytes.size() < size)
            return 0;
        AppendNumber(text, static_cast<decltype(type)>(LittleEndian(bytes, size)));
        return size;
    };
    switch (FormOf(code)) {
    case Form::Unknown:
        break;
    case Form::Text:
        return TakeString(bytes, text);
    case Form::Real:
        if (bytes.size() < sizeof(double))
            return 0;
        AppendReal(text, std::bit_cast<double>(LittleEndian(bytes, sizeof(double))));
        return sizeof(double);
    case Form::Bool:
        return number(1, std::uint8_t{});
    case Form::Int16:
        return number(2, std::int16_t{});
    case Form::Int32:
        return number(4, std::int32_t{});
    case Form::Int64:
        return number(8, std::int64_t{});
    case Form::Chunk: {
        const std::size_t size = bytes.empty() ? 0 : static_cast<unsigned char>(bytes[0]);
        if (bytes.size() < 1 + size)
            return 0;
        AppendHex(text, bytes.substr(1, size));
        return 1 + size;
    }
    }
    m_isBroken = true; // the length of the value is unknown
    return 0;
}

// Up to a zero. What would end a line or a file within a text becomes a blank.
std::size_t BinaryText::TakeString(std::string_view bytes, std::string& text)
{
    const std::size_t end = bytes.substr(0, kLongestText).find('\0');
    if (end == std::string_view::npos && bytes.size() < kLongestText)
        return 0;
    m_skipsString = end == std::string_view::npos;
    for (const char c : bytes.substr(0, m_skipsString ? kLongestText : end))
        text += c == '\n' || c == '\r' || c == '\x1A' ? ' ' : c;
    return m_skipsString ? kLongestText : end + 1;
}

} // namespace prepare
