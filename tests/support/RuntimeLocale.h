// What the host's country does to the runtime library.
#pragma once

#include <clocale>
#include <initializer_list>
#include <string>

// The runtime library's locale for the length of a test.
class RuntimeLocale {
public:
    // Takes the first of the names that there is.
    explicit RuntimeLocale(std::initializer_list<const char*> names)
        : m_before(std::setlocale(LC_ALL, nullptr))
    {
        for (const char* name : names)
            if (!m_isSet)
                m_isSet = std::setlocale(LC_ALL, name) != nullptr;
    }
    ~RuntimeLocale() { std::setlocale(LC_ALL, m_before.c_str()); }
    RuntimeLocale(const RuntimeLocale&) = delete;
    RuntimeLocale& operator=(const RuntimeLocale&) = delete;

    bool IsSet() const { return m_isSet; }

private:
    const std::string m_before;
    bool m_isSet = false;
};

// A country with a decimal comma, and one where an I is no capital i besides.
inline constexpr std::initializer_list<const char*> kGerman = {"de_DE.UTF-8", "de_DE", "German_Germany.1252",
                                                               "de-DE"};
inline constexpr std::initializer_list<const char*> kTurkish = {"tr_TR.UTF-8", "tr_TR", "Turkish_Turkey.1254",
                                                                "tr-TR"};
