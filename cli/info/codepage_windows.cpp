#include "cli/info/codepage.h"

#include "cli/utf8.h"

#include <windows.h>

namespace plexorn {

bool AreTextsTakenForUtf8()
{
    return GetACP() == CP_UTF8;
}

CCodePage::CCodePage(std::string_view name) : m_nNumber(CodePageNumber(name)) {}

CCodePage::~CCodePage() = default;

std::string CCodePage::Converted(std::string_view text) const
{
    auto size = static_cast<int>(text.size());
    int wideSize = MultiByteToWideChar(m_nNumber, MB_ERR_INVALID_CHARS, text.data(), size, nullptr, 0);
    if (wideSize <= 0)
        return {};
    std::wstring wide(static_cast<size_t>(wideSize), L'\0');
    MultiByteToWideChar(m_nNumber, MB_ERR_INVALID_CHARS, text.data(), size, wide.data(), wideSize);
    return Utf8FromWide(wide);
}

} // namespace plexorn
