#include "cli/report/Printable.h"

#include <cstddef>

namespace plexorn {

std::string Printable(std::string_view text)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto byte = static_cast<unsigned char>(text[i]);
        // U+0080 to U+009F, C2 80 to C2 9F, are control characters too.
        auto next = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : 0u;
        const bool isUpperControl = byte == 0xC2 && next >= 0x80 && next < 0xA0;
        if (isUpperControl)
            byte = static_cast<unsigned char>(text[++i]);
        if (isUpperControl || byte < 0x20 || byte == 0x7F)
            out.append({'\\', 'x', kDigits[byte >> 4], kDigits[byte & 15]});
        else
            out.push_back(text[i]);
    }
    return out;
}

} // namespace plexorn
