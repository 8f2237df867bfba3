#include "svghost/ErrorLog.h"

#include <algorithm>

namespace svghost {

void ErrorLog::SetListener(SvgHostErrorFunction function, void* user)
{
    m_function = function;
    m_user = user;
}

void ErrorLog::Add(int code, int kind, const wchar_t* message)
{
    const std::wstring_view text(message ? message : L"");
    if (m_function) {
        const SvgHostError error{code, kind, text.data()};
        m_function(m_user, &error);
        return;
    }
    Report report{code, kind, {}, nullptr};
    const auto isNarrow = [](wchar_t unit) { return static_cast<char32_t>(unit) <= 0xFF; };
    if (std::all_of(text.begin(), text.end(), isNarrow)) {
        m_scratch.resize(text.size());
        std::transform(text.begin(), text.end(), m_scratch.begin(),
                       [](wchar_t unit) { return static_cast<char>(unit); });
        report.narrow = m_texts.Copy(std::string_view(m_scratch));
    } else {
        report.wide = m_texts.Copy(text).data();
    }
    m_reports.push_back(report);
}

SvgHostError ErrorLog::At(std::size_t index)
{
    const Report& report = m_reports[index];
    if (report.wide)
        return {report.code, report.kind, report.wide};
    m_message.resize(report.narrow.size());
    std::transform(report.narrow.begin(), report.narrow.end(), m_message.begin(),
                   [](char byte) { return static_cast<wchar_t>(static_cast<unsigned char>(byte)); });
    return {report.code, report.kind, m_message.c_str()};
}

} // namespace svghost
