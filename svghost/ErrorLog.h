// What the module reported through qlmSetLastError.
#pragma once

#include "base/CDxfArena.h"
#include "svghost/SvgHost.h"

#include <string>
#include <vector>

namespace svghost {

// The reports of one document. A broken drawing can bring millions of them: messages of characters up to
// U+00FF, nearly all, are kept in one byte a character.
class ErrorLog {
public:
    // Passes further reports to function instead of keeping them; null keeps them again.
    void SetListener(SvgHostErrorFunction function, void* user);
    void Add(int code, int kind, const wchar_t* message);
    std::size_t Count() const { return m_reports.size(); }
    // The message is valid until the next call.
    SvgHostError At(std::size_t index);

private:
    struct Report {
        int code;
        int kind;
        std::string_view narrow;
        const wchar_t* wide; // null when narrow has the message
    };

    CDxfArena m_texts;
    std::vector<Report> m_reports;
    std::string m_scratch;
    std::wstring m_message;
    SvgHostErrorFunction m_function = nullptr;
    void* m_user = nullptr;
};

} // namespace svghost
