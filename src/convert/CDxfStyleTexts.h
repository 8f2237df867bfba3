// The texts of stroke styles, made once for each distinct style.
#pragma once

#include "entities/DXF_GRAPHIC_BASE.h"
#include "reader/DXF_STRING.h"
#include "reader/Hash.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <unordered_map>

// The values of the three style attributes.
struct DXF_STYLE_TEXTS {
    DXF_STRING width;
    DXF_STRING color;
    DXF_STRING dashes;
};

// Remembers the texts of every combination of what an entity's style depends on. A drawing has few of them,
// and the reader keeps equal names once, so names are compared by their place; where the same name stands
// in two places the texts are made twice, and are the same.
class CDxfStyleTexts {
public:
    CDxfStyleTexts() = default;
    CDxfStyleTexts(const CDxfStyleTexts&) = delete;
    CDxfStyleTexts& operator=(const CDxfStyleTexts&) = delete;

    // The texts of an entity's style; make(entity) makes those that are not there. Throws what make throws.
    template <class Make>
    const DXF_STYLE_TEXTS& Find(const DXF_GRAPHIC_BASE& entity, const Make& make)
    {
        const KEY key = KeyOf(entity);
        RECENT& recent = m_recent[PlaceOf(key)];
        if (recent.texts == nullptr || recent.key != key) {
            auto found = m_texts.find(key);
            if (found == m_texts.end())
                found = m_texts.emplace(key, make(entity)).first;
            recent = {key, &found->second}; // references into the map stay valid
        }
        return *recent.texts;
    }

private:
    using KEY = std::array<std::uint64_t, 4>;
    struct HASH {
        std::uint64_t key;
        std::size_t operator()(const KEY& value) const { return HashBytes(value.data(), sizeof(value), key); }
    };

    static KEY KeyOf(const DXF_GRAPHIC_BASE& entity)
    {
        const auto pack = [](std::int32_t high, std::int32_t low) {
            return std::uint64_t{static_cast<std::uint32_t>(high)} << 32 | static_cast<std::uint32_t>(low);
        };
        return {reinterpret_cast<std::uintptr_t>(entity.m_strLayer.c_str()),
                reinterpret_cast<std::uintptr_t>(entity.m_strLineType.c_str()),
                pack(entity.m_nColor, entity.m_nLineWeight), pack(0, entity.m_nTrueColor)};
    }

    // In front of the map: most entities have one of a few styles, and the map costs three cache misses.
    struct RECENT {
        KEY key;
        const DXF_STYLE_TEXTS* texts = nullptr;
    };
    static std::size_t PlaceOf(const KEY& key)
    {
        return static_cast<std::size_t>((key[0] ^ key[1] * 3 ^ key[2] * 5 ^ key[3]) * 0x9E3779B97F4A7C15u >>
                                        56);
    }

    std::unordered_map<KEY, DXF_STYLE_TEXTS, HASH> m_texts{0, HASH{HashKey(this)}};
    std::array<RECENT, 256> m_recent{};
};
