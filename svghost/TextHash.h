// The hash of texts that a drawing chooses.
#pragma once

#include "base/Hash.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace svghost {

// No drawing can choose texts that all meet in one place of a table: the key is another one in each process.
class TextHash {
public:
    TextHash() : m_key(HashKey(this)) {}

    std::size_t operator()(std::wstring_view text) const
    {
        return static_cast<std::size_t>(HashBytes(text.data(), text.size() * sizeof(wchar_t), m_key));
    }

private:
    std::uint64_t m_key;
};

} // namespace svghost
