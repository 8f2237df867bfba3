#include "PictureForms.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace {

using Numbers = std::vector<double>;

// A name and the numbers after it.
struct Part {
    std::string_view name;
    Numbers numbers;
};

constexpr std::string_view kSeparators = " ,";

// The numbers of a list, blanks and commas between them; nothing if it holds anything else.
std::optional<Numbers> NumbersOf(std::string_view list)
{
    Numbers numbers;
    while (!list.empty()) {
        const std::size_t size = std::min(list.find_first_of(kSeparators), list.size());
        if (size > 0) {
            const std::optional<double> number = NumberOf(list.substr(0, size));
            if (!number)
                return std::nullopt;
            numbers.push_back(*number);
        }
        list.remove_prefix(std::min(size + 1, list.size()));
    }
    return numbers;
}

bool IsPoints(std::string_view value)
{
    const std::optional<Numbers> numbers = NumbersOf(value);
    return numbers && numbers->size() % 2 == 0;
}

bool IsViewBox(std::string_view value)
{
    const std::optional<Numbers> numbers = NumbersOf(value);
    return numbers && numbers->size() == 4 && (*numbers)[2] > 0 && (*numbers)[3] > 0;
}

bool IsDashes(std::string_view value)
{
    const std::optional<Numbers> numbers = NumbersOf(value);
    return numbers && std::ranges::none_of(*numbers, [](double length) { return length < 0; }) &&
           std::ranges::any_of(*numbers, [](double length) { return length > 0; });
}

bool IsSegment(char command, const Numbers& numbers)
{
    switch (command) {
    case 'M':
    case 'L':
        return !numbers.empty() && numbers.size() % 2 == 0;
    case 'A':
        return !numbers.empty() && numbers.size() % 7 == 0;
    default:
        return command == 'Z' && numbers.empty();
    }
}

bool IsPath(std::string_view value)
{
    constexpr std::string_view kCommands = "MLAZ";
    if (!value.empty() && value.front() != 'M')
        return false;
    while (!value.empty()) {
        const char command = value.front();
        value.remove_prefix(1);
        const std::size_t size = std::min(value.find_first_of(kCommands), value.size());
        const std::optional<Numbers> numbers = NumbersOf(value.substr(0, size));
        if (!numbers || !IsSegment(command, *numbers))
            return false;
        value.remove_prefix(size);
    }
    return true;
}

bool IsTransformPart(const Part& part)
{
    const std::size_t count = part.numbers.size();
    if (part.name == "rotate")
        return count == 1 || count == 3;
    return (part.name == "translate" || part.name == "scale") && count == 2;
}

bool IsTransform(std::string_view value)
{
    while (!value.empty()) {
        const std::size_t open = value.find('('), close = value.find(')');
        if (open == std::string_view::npos || close == std::string_view::npos || close < open)
            return false;
        const std::optional<Numbers> numbers = NumbersOf(value.substr(open + 1, close - open - 1));
        if (!numbers || !IsTransformPart({value.substr(0, open), *numbers}))
            return false;
        value.remove_prefix(close + 1);
        value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
    }
    return true;
}

} // namespace

std::optional<double> NumberOf(std::string_view word)
{
    const std::string text(word);
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    const bool isOne = !text.empty() && end == text.c_str() + text.size() && std::isfinite(number) &&
                       text.find_first_not_of("0123456789.eE+-") == std::string::npos;
    return isOne ? std::optional(number) : std::nullopt;
}

bool HasFormOf(std::string_view name, std::string_view value)
{
    if (name == "points")
        return IsPoints(value);
    if (name == "d")
        return IsPath(value);
    if (name == "transform")
        return !value.empty() && IsTransform(value);
    if (name == "viewBox")
        return IsViewBox(value);
    if (name == "style")
        return value.starts_with("fill:");
    return name != "stroke-dasharray" || IsDashes(value);
}

bool MayFetch(std::string_view text)
{
    std::string small(text);
    std::ranges::transform(small, small.begin(), [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
    });
    // A backslash begins an escape, which can spell any letter.
    return small.find("url(") != std::string::npos || small.find("@import") != std::string::npos ||
           small.find('\\') != std::string::npos;
}
