// The texts of stroke styles, made once for each distinct style.
#pragma once

#include "base/CDxfHashIndex.h"
#include "base/DXF_STRING.h"
#include "base/Hash.h"
#include "entities/DXF_GRAPHIC_BASE.h"

#include <array>
#include <cstdint>
#include <vector>

// The values of the three style attributes.
struct DXF_STYLE_TEXTS {
    DXF_STRING width;
    DXF_STRING color;
    DXF_STRING dashes;
};

// Remembers the texts of every combination of what an entity's style depends on. A drawing has few of them,
// and the reader keeps equal names once, so names are compared by their address. If the same name is at two
// addresses, the same texts are made twice.
class CDxfStyleTexts {
public:
    CDxfStyleTexts() = default;
    CDxfStyleTexts(const CDxfStyleTexts&) = delete; // its place is the key of its hashes
    CDxfStyleTexts& operator=(const CDxfStyleTexts&) = delete;

    // The texts of an entity's style; make(entity) makes those that are not there. Throws what make throws,
    // and std::bad_alloc.
    template <class Make>
    DXF_STYLE_TEXTS Find(const DXF_GRAPHIC_BASE& entity, const Make& make)
    {
        const Key key = KeyOf(entity);
        const std::uint64_t hash = HashBytes(key.data(), sizeof(key), HashKey(this));
        const std::uint32_t known =
            m_index.Find(hash, [&](std::uint32_t number) { return m_styles[number].key == key; });
        if (known != CDxfHashIndex::kNone)
            return m_styles[known].texts;
        m_index.Reserve();
        m_styles.push_back({key, make(entity)});
        m_index.Add(hash, static_cast<std::uint32_t>(m_styles.size() - 1));
        return m_styles.back().texts;
    }

private:
    using Key = std::array<std::uint64_t, 4>;
    struct Style {
        Key key;
        DXF_STYLE_TEXTS texts;
    };

    static Key KeyOf(const DXF_GRAPHIC_BASE& entity)
    {
        const auto pack = [](std::int32_t high, std::int32_t low) {
            return std::uint64_t{static_cast<std::uint32_t>(high)} << 32 | static_cast<std::uint32_t>(low);
        };
        return {reinterpret_cast<std::uintptr_t>(entity.m_strLayer.c_str()),
                reinterpret_cast<std::uintptr_t>(entity.m_strLineType.c_str()),
                pack(entity.m_nColor, entity.m_nLineWeight), pack(0, entity.m_nTrueColor)};
    }

    std::vector<Style> m_styles;
    CDxfHashIndex m_index;
};
