#include "cli/info/codepage.h"

#include <bit>
#include <cstdint>

#include <iconv.h>

namespace plexorn {

namespace {

// What iconv_open gives in place of a converter.
const iconv_t None = std::bit_cast<iconv_t>(std::intptr_t{-1});

} // namespace

bool AreTextsTakenForUtf8()
{
    return true;
}

CCodePage::CCodePage(std::string_view name) : m_nNumber(CodePageNumber(name))
{
    iconv_t converter = iconv_open("UTF-8", ("CP" + std::to_string(m_nNumber)).c_str());
    if (converter != None)
        m_pConverter = converter;
}

CCodePage::~CCodePage()
{
    if (m_pConverter)
        iconv_close(m_pConverter);
}

std::string CCodePage::Converted(std::string_view text) const
{
    if (!m_pConverter)
        return {};
    // No character of a code page takes more bytes than this in UTF-8.
    constexpr size_t longest = 4;
    std::string out(text.size() * longest, '\0');
    std::string in(text);
    char* source = in.data();
    char* target = out.data();
    size_t sourceLeft = in.size();
    size_t targetLeft = out.size();
    iconv(m_pConverter, nullptr, nullptr, nullptr, nullptr);
    if (iconv(m_pConverter, &source, &sourceLeft, &target, &targetLeft) == static_cast<size_t>(-1))
        return {};
    out.resize(out.size() - targetLeft);
    return out;
}

} // namespace plexorn
