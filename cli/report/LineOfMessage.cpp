#include "cli/report/LineOfMessage.h"

#include <cstddef>
#include <initializer_list>

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

std::string_view WithoutLine(std::string_view message)
{
    const std::string_view line = LineOfMessage(message);
    if (line.empty())
        return message;
    message.remove_suffix(static_cast<std::size_t>(message.data() + message.size() - line.data()));
    for (const std::string_view words : {" (", "Line:", " Line", " ", ","})
        if (message.ends_with(words))
            message.remove_suffix(words.size());
    return message;
}

} // namespace plexorn
