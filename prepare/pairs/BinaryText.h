// Binary drawings.
#pragma once

#include "prepare/pairs/Decoder.h"

#include <cstddef>
#include <cstdint>

namespace prepare {

// Turns the pairs of a binary drawing into text pairs, so that everything after is the same. Reals become the
// shortest texts that read back as the same.
class BinaryText final : public Decoder {
public:
    // What a binary drawing begins with, and the words in it.
    static constexpr std::string_view kSentinel{"AutoCAD Binary DXF\r\n\x1A\0", 22};
    static constexpr std::string_view kWords = kSentinel.substr(0, kSentinel.find('\r'));

    void Take(std::string_view bytes, std::string& text) override;
    void Finish(std::string& text) override;
    bool IsBroken() const override { return m_isBroken; }

private:
    // Each gives how many bytes it has taken; 0 while there are too few, or when the bytes are broken.
    std::size_t TakePair(std::string_view bytes, std::string& text);
    std::size_t TakeCode(std::string_view bytes, std::int32_t& code) const;
    std::size_t TakeValue(std::int32_t code, std::string_view bytes, std::string& text);
    std::size_t TakeString(std::int32_t code, std::string_view bytes, std::string& text);

    std::string m_waiting;
    bool m_hasBegun = false;     // the sentinel has been passed and the width of codes is known
    bool m_hasWideCodes = false; // two bytes, since R13
    bool m_isBroken = false;
    bool m_skipsString = false; // the rest of a text that was too long
};

} // namespace prepare
