#include "base/NamedCodePage.h"

#include <bit>
#include <cstddef>
#include <cstdint>

#include <iconv.h>

NamedCodePage::NamedCodePage(std::string_view name) : m_number(NumberIn(name))
{
    // What iconv_open returns when it has no converter.
    static const iconv_t kNone = std::bit_cast<iconv_t>(std::intptr_t{-1});
    const iconv_t converter = iconv_open("UTF-8", ("CP" + std::to_string(m_number)).c_str());
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
    iconv(m_converter, nullptr, nullptr, nullptr, nullptr);
    if (iconv(m_converter, &source, &sourceLeft, &target, &targetLeft) == static_cast<std::size_t>(-1))
        return {};
    out.resize(out.size() - targetLeft);
    return out;
}
