// The code page that a drawing names.
#pragma once

#include <string>
#include <string_view>

// Makes UTF-8 of a drawing's texts. A text that is UTF-8 already stays; any other is taken to be in the code
// page of that name ("ANSI_1252"), and where the system does not know it, each byte beyond ASCII becomes
// U+FFFD. The module does not use this: it takes all texts to be in the system's code page.
class NamedCodePage {
public:
    explicit NamedCodePage(std::string_view name);
    ~NamedCodePage();
    NamedCodePage(const NamedCodePage&) = delete;
    NamedCodePage& operator=(const NamedCodePage&) = delete;

    // Whether the system has the code page.
    bool IsKnown() const;

    // Throws std::bad_alloc.
    std::string Utf8(std::string_view text) const;

private:
    // From the code page to UTF-8, with U+FFFD for bytes that it does not know; empty when the system does
    // not have the code page. In the files of the systems, as the constructor and the destructor are.
    std::string Converted(std::string_view text) const;

    // The number at the end of a code page's name; that of the Western European one if the name has no
    // number.
    static unsigned NumberIn(std::string_view name);

    unsigned m_number;
    void* m_converter = nullptr;
};
