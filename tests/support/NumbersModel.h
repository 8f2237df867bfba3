// Numbers as the C library reads and writes them in the C locale.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>

// A real by strtod, without what strtod reads beyond decimal numbers: no hexadecimal number, no "inf", no
// "nan". 0 where there is none; some libraries would keep the sign of nothing.
inline double ModelReal(std::string_view text)
{
    const std::string decimal(text.substr(0, text.find_first_not_of("0123456789.eE+- \t\n\v\f\r")));
    char* end = nullptr;
    const double value = std::strtod(decimal.c_str(), &end);
    return end == decimal.c_str() ? 0.0 : value;
}

// An integer by strtoll, saturating at 32 bits.
inline std::int32_t ModelInteger(std::string_view text)
{
    const long long number = std::strtoll(std::string(text).c_str(), nullptr, 10);
    const long long least = std::numeric_limits<std::int32_t>::min();
    const long long most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(number, least, most));
}

// Whether "%d" finds a number, and which; outside 32 bits it wraps. Up to 18 digits strtoll gives its value,
// beyond that the last of them do: ten to the 32nd power is a multiple of two to the 32nd.
inline bool ModelCode(std::string_view text, std::int32_t& code)
{
    std::string number(text.substr(0, text.find('\0')));
    char* end = nullptr;
    long long value = std::strtoll(number.c_str(), &end, 10);
    if (end == number.c_str())
        return false;
    number.resize(static_cast<std::size_t>(end - number.c_str()));
    const std::size_t first = number.find_first_of("0123456789");
    const bool isNegative = first != 0 && number[first - 1] == '-';
    const std::string digits = number.substr(first);
    if (digits.size() > 18) {
        const std::string last = digits.substr(digits.size() - std::min<std::size_t>(digits.size(), 32));
        std::uint64_t wrapped = 0;
        for (std::size_t at = 0; at < last.size(); at += 8) {
            const std::string part = last.substr(at, 8);
            wrapped = wrapped * static_cast<std::uint64_t>(std::pow(10.0, part.size())) +
                      std::strtoull(part.c_str(), nullptr, 10);
            wrapped &= 0xFFFFFFFFu;
        }
        value = static_cast<long long>(wrapped);
        value = isNegative ? -value : value;
    }
    code = static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<std::uint64_t>(value)));
    return true;
}

// What snprintf writes for a number by a format such as "%f"; what is not a number has no sign.
inline std::string ModelFormat(const char* format, double value)
{
    if (std::isnan(value))
        value = std::numeric_limits<double>::quiet_NaN();
    char text[512];
    return {text, static_cast<std::size_t>(std::snprintf(text, sizeof(text), format, value))};
}
