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

enum class ValueForm : std::uint8_t { Unknown, Text, Real, Bool, Int16, Int32, Int64, Chunk };

struct FormRange {
    std::int32_t first;
    std::int32_t last;
    ValueForm form;
};

// What the values of each group code are, as the format says.
constexpr FormRange kForms[] = {
    {0, 9, ValueForm::Text},        {10, 59, ValueForm::Real},     {60, 79, ValueForm::Int16},
    {80, 89, ValueForm::Int16},     {90, 99, ValueForm::Int32},    {100, 109, ValueForm::Text},
    {110, 149, ValueForm::Real},    {160, 169, ValueForm::Int64},  {170, 179, ValueForm::Int16},
    {210, 239, ValueForm::Real},    {270, 289, ValueForm::Int16},  {290, 299, ValueForm::Bool},
    {300, 309, ValueForm::Text},    {310, 319, ValueForm::Chunk},  {320, 369, ValueForm::Text},
    {370, 389, ValueForm::Int16},   {390, 399, ValueForm::Text},   {400, 409, ValueForm::Int16},
    {410, 419, ValueForm::Text},    {420, 429, ValueForm::Int32},  {430, 439, ValueForm::Text},
    {440, 459, ValueForm::Int32},   {460, 469, ValueForm::Real},   {470, 481, ValueForm::Text},
    {999, 999, ValueForm::Text},    {1000, 1003, ValueForm::Text}, {1004, 1004, ValueForm::Chunk},
    {1005, 1009, ValueForm::Text},  {1010, 1059, ValueForm::Real}, {1060, 1070, ValueForm::Int16},
    {1071, 1071, ValueForm::Int32},
};

ValueForm FormOf(std::int32_t code)
{
    const auto found = std::find_if(std::begin(kForms), std::end(kForms), [code](const FormRange& range) {
        return code >= range.first && code <= range.last;
    });
    return found == std::end(kForms) ? ValueForm::Unknown : found->form;
}

// A number of that many bytes, the lowest first.
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

void AppendShortest(std::string& text, double value)
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

// Whether texts of that code say ^J for a line feed.
bool HasControlCodes(std::int32_t code)
{
    return code == 1 || code == 3 || code == 304;
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

std::size_t BinaryText::TakeCode(std::string_view bytes, std::int32_t& code) const
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
    case ValueForm::Unknown:
        break;
    case ValueForm::Text:
        return TakeString(code, bytes, text);
    case ValueForm::Real:
        if (bytes.size() < sizeof(double))
            return 0;
        AppendShortest(text, std::bit_cast<double>(LittleEndian(bytes, sizeof(double))));
        return sizeof(double);
    case ValueForm::Bool:
        return number(1, std::uint8_t{});
    case ValueForm::Int16:
        return number(2, std::int16_t{});
    case ValueForm::Int32:
        return number(4, std::int32_t{});
    case ValueForm::Int64:
        return number(8, std::int64_t{});
    case ValueForm::Chunk: {
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

// Up to a zero. What would end a line or a file within a text becomes a blank, or the code for it.
std::size_t BinaryText::TakeString(std::int32_t code, std::string_view bytes, std::string& text)
{
    const std::size_t end = bytes.substr(0, kLongestText).find('\0');
    if (end == std::string_view::npos && bytes.size() < kLongestText)
        return 0;
    m_skipsString = end == std::string_view::npos;
    for (const char c : bytes.substr(0, m_skipsString ? kLongestText : end)) {
        if (c == '\n' && HasControlCodes(code))
            text += "^J";
        else
            text += c == '\n' || c == '\r' || c == '\x1A' ? ' ' : c;
    }
    return m_skipsString ? kLongestText : end + 1;
}

} // namespace prepare
