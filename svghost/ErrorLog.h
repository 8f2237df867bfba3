// What the module reported through qlmSetLastError.
#ifndef SVGHOST_ERRORLOG_H
#define SVGHOST_ERRORLOG_H

#include "svghost/Arena.h"
#include "svghost/SvgHost.h"

#include <string>
#include <vector>

namespace svghost {

// The reports of one document. A broken drawing can bring millions of them: messages of characters up to
// U+00FF, nearly all, are kept in one byte a character.
class ErrorLog {
public:
    // Hands further reports to function instead of keeping them; null keeps them again.
    void setListener(SvgHostErrorFunction function, void* user);
    void add(int code, int kind, const wchar_t* message);
    std::size_t count() const { return m_reports.size(); }
    // The message is good until the next call.
    SvgHostError at(std::size_t index);

private:
    struct Report {
        int code;
        int kind;
        std::string_view narrow;
        const wchar_t* wide; // null when narrow holds the message
    };

    Arena m_texts;
    std::vector<Report> m_reports;
    std::string m_scratch;
    std::wstring m_message;
    SvgHostErrorFunction m_function = nullptr;
    void* m_user = nullptr;
};

} // namespace svghost

#endif
