#include "cli/report/Printable.h"

#include "base/Numbers.h"
#include "cli/report/IsUpperControl.h"

namespace plexorn {

std::string Printable(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isUpperControl = IsUpperControl(text.substr(i));
        if (isUpperControl)
            ++i;
        const auto byte = static_cast<unsigned char>(text[i]);
        if (isUpperControl || byte < 0x20 || byte == 0x7F) {
            char digits[2];
            out.append("\\x").append(digits, FormatUpperHex(byte, 2, digits));
        } else {
            out.push_back(text[i]);
        }
    }
    return out;
}

} // namespace plexorn
