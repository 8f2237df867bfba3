#include "base/NamedCodePage.h"

#include "base/Api_windows.h"
#include "base/Utf8.h"

#include <cstddef>

NamedCodePage::NamedCodePage(std::string_view name) : m_number(NumberIn(name)) {}

NamedCodePage::~NamedCodePage() = default;

bool NamedCodePage::IsKnown() const
{
    return IsValidCodePage(m_number) != 0;
}

std::string NamedCodePage::Converted(std::string_view text) const
{
    const int size = static_cast<int>(text.size()); // a few lines
    const int wideSize = MultiByteToWideChar(m_number, 0, text.data(), size, nullptr, 0);
    if (wideSize <= 0)
        return {};
    std::wstring wide(static_cast<std::size_t>(wideSize), L'\0');
    MultiByteToWideChar(m_number, 0, text.data(), size, wide.data(), wideSize);
    return Utf8FromWide(wide);
}
