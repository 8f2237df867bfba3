#include "cli/info/codepage.h"

#include "cli/info/numbers.h"
#include "cli/utf8.h"

namespace plexorn {

unsigned CodePageNumber(std::string_view name)
{
    constexpr int westernEuropean = 1252;
    constexpr int largest = 65535;
    size_t last = name.find_last_not_of("0123456789");
    std::string_view digits = last == std::string_view::npos ? name : name.substr(last + 1);
    int number = LeadingInteger(digits).value_or(westernEuropean);
    return static_cast<unsigned>(number > 0 && number <= largest ? number : westernEuropean);
}

std::string CCodePage::Utf8(std::string_view text) const
{
    std::string valid = ValidUtf8(text);
    if (valid == text)
        return valid;
    std::string converted = Converted(text);
    return converted.empty() ? valid : converted;
}

} // namespace plexorn
