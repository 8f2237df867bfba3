// The hash of names that a drawing chooses.
#pragma once

#include "base/Hash.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace svghost {

// No drawing can choose names that all meet in one place of a table: each table has a key of its own.
class NameHash {
public:
    NameHash() : m_key(HashKey(this)) {}

    std::size_t operator()(std::wstring_view name) const
    {
        return static_cast<std::size_t>(HashBytes(name.data(), name.size() * sizeof(wchar_t), m_key));
    }

private:
    std::uint64_t m_key;
};

} // namespace svghost
