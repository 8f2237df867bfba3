#include "cli/report/LineOfMessage.h"

#include <cstddef>

namespace plexorn {

namespace {

std::string_view TrailingDigits(std::string_view text)
{
    const std::size_t last = text.find_last_not_of("0123456789");
    return last == std::string_view::npos ? text : text.substr(last + 1);
}

} // namespace

std::string_view LineOfMessage(std::string_view message)
{
    const bool isInParentheses = message.ends_with(')');
    if (isInParentheses)
        message.remove_suffix(1);
    const std::string_view digits = TrailingDigits(message);
    message.remove_suffix(digits.size());
    return message.ends_with(isInParentheses ? " (" : "Line:") ? digits : std::string_view();
}

} // namespace plexorn
