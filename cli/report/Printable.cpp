#include "cli/report/Printable.h"

#include "base/Numbers.h"
#include "base/Utf8.h"

namespace plexorn {

std::string Printable(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const auto [character, size] = DecodeUtf8(text);
        if (IsControl(character)) {
            char digits[2];
            out.append("\\x").append(digits, FormatUpperHex(character, 2, digits));
        } else {
            out.append(text.substr(0, size));
        }
        text.remove_prefix(size);
    }
    return out;
}

} // namespace plexorn
