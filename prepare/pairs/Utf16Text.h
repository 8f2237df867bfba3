// Drawings in UTF-16.
#pragma once

#include "prepare/pairs/Decoder.h"

namespace prepare {

// Turns UTF-16 into UTF-8; single surrogates become U+FFFD.
class Utf16Text final : public Decoder {
public:
    explicit Utf16Text(bool isBigEndian) : m_isBigEndian(isBigEndian) {}

    void Take(std::string_view bytes, std::string& text) override;
    void Finish(std::string& text) override;

private:
    void TakeUnit(char32_t unit, std::string& text);

    bool m_isBigEndian;
    bool m_hasByte = false; // the first of a unit
    unsigned char m_byte = 0;
    char32_t m_high = 0; // a surrogate that waits for its second half; 0: none
};

} // namespace prepare
