// The texts of a drawing's file as UTF-8.
#ifndef PLEXORN_CLI_INFO_CODEPAGE_H
#define PLEXORN_CLI_INFO_CODEPAGE_H

#include <string>
#include <string_view>

namespace plexorn {

// Makes UTF-8 of a drawing's texts. A text that is UTF-8 already stays; any other is taken to be in the code
// page that the drawing names ("ANSI_1252"), and where the system does not know that one, each of its bytes
// beyond ASCII becomes U+FFFD.
class CCodePage {
public:
    explicit CCodePage(std::string_view name);
    ~CCodePage();
    CCodePage(const CCodePage&) = delete;
    CCodePage& operator=(const CCodePage&) = delete;

    std::string Utf8(std::string_view text) const;

private:
    // From the code page to UTF-8; empty when text has a byte that the code page does not know. In
    // codepage_posix.cpp and codepage_windows.cpp.
    std::string Converted(std::string_view text) const;

    unsigned m_nNumber;
    void* m_pConverter = nullptr;
};

// Whether the module takes a drawing's texts for UTF-8 on this system, whatever code page the drawing names.
bool AreTextsTakenForUtf8();

// The number at the end of a code page's name; that of the Western European one when none stands there.
unsigned CodePageNumber(std::string_view name);

} // namespace plexorn

#endif
