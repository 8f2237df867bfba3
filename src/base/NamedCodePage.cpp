#include "base/NamedCodePage.h"

#include "base/Numbers.h"
#include "base/Utf8.h"

#include <cstdint>

unsigned NamedCodePage::NumberIn(std::string_view name)
{
    constexpr unsigned kWesternEuropean = 1252;
    constexpr std::int32_t kLargest = 65535;
    const std::size_t last = name.find_last_not_of("0123456789");
    const std::string_view digits = last == std::string_view::npos ? name : name.substr(last + 1);
    const std::int32_t number = ParseInteger(digits);
    return number > 0 && number <= kLargest ? static_cast<unsigned>(number) : kWesternEuropean;
}

std::string NamedCodePage::Utf8(std::string_view text) const
{
    std::string valid = ValidUtf8(text);
    if (valid == text)
        return valid;
    std::string converted = Converted(text);
    return converted.empty() ? valid : converted;
}
