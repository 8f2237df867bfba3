#include "base/NamedCodePage.h"

#include "base/Utf8.h"

#include <bit>
#include <cstddef>
#include <cstdint>

#include <iconv.h>

namespace {

// Converters have no number for these.
std::string ConverterName(unsigned number)
{
    constexpr unsigned kIso8859 = 28590, kLastIso8859 = kIso8859 + 16, kMacintosh = 10000;
    if (number == kMacintosh)
        return "MACINTOSH";
    if (number > kIso8859 && number <= kLastIso8859)
        return "ISO-8859-" + std::to_string(number - kIso8859);
    return "CP" + std::to_string(number);
}

} // namespace

NamedCodePage::NamedCodePage(std::string_view name) : m_number(NumberIn(name))
{
    // What iconv_open returns when it has no converter.
    static const iconv_t kNone = std::bit_cast<iconv_t>(std::intptr_t{-1});
    const iconv_t converter = iconv_open("UTF-8", ConverterName(m_number).c_str());
    if (converter != kNone)
        m_converter = converter;
}

NamedCodePage::~NamedCodePage()
{
    if (m_converter != nullptr)
        iconv_close(m_converter);
}

bool NamedCodePage::IsKnown() const
{
    return m_converter != nullptr;
}

std::string NamedCodePage::Converted(std::string_view text) const
{
    if (m_converter == nullptr)
        return {};
    // No character of a code page takes more bytes than this in UTF-8.
    constexpr std::size_t kLongest = 4;
    std::string out(text.size() * kLongest, '\0');
    std::string in(text);
    char* source = in.data();
    char* target = out.data();
    std::size_t sourceLeft = in.size();
    std::size_t targetLeft = out.size();
    // Some converters hold a letter back until they see whether an accent follows. Without input they give
    // it.
    const auto giveHeldBack = [&] { iconv(m_converter, nullptr, nullptr, &target, &targetLeft); };
    iconv(m_converter, nullptr, nullptr, nullptr, nullptr);
    while (iconv(m_converter, &source, &sourceLeft, &target, &targetLeft) == static_cast<std::size_t>(-1)) {
        // An invalid byte, or the text ends within a character.
        giveHeldBack();
        if (sourceLeft == 0 || targetLeft < kReplacementText.size())
            return {};
        kReplacementText.copy(target, kReplacementText.size());
        target += kReplacementText.size();
        targetLeft -= kReplacementText.size();
        ++source;
        --sourceLeft;
    }
    giveHeldBack();
    out.resize(out.size() - targetLeft);
    return out;
}
