// The texts of stroke styles, made once for each distinct style.
#pragma once

#include "entities/DXF_GRAPHIC_BASE.h"
#include "reader/DXF_STRING.h"
#include "reader/Hash.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

// The values of the three style attributes.
struct DXF_STYLE_TEXTS {
    DXF_STRING width;
    DXF_STRING color;
    DXF_STRING dashes;
};

// Remembers the texts of every combination of what an entity's style depends on. A drawing has few of them,
// and the reader keeps equal names once, so names are compared by their place; where the same name stands
// in two places the texts are made twice, and are the same.
//
// Open addressing, at most half filled: a look costs one cache miss, where a map of the standard library
// costs three and took a twentieth of an import.
class CDxfStyleTexts {
public:
    // The texts of an entity's style; make(entity) makes those that are not there. Throws what make throws,
    // and std::bad_alloc.
    template <class Make>
    DXF_STYLE_TEXTS Find(const DXF_GRAPHIC_BASE& entity, const Make& make)
    {
        if (m_count * 2 >= m_slots.size())
            Grow();
        const KEY key = KeyOf(entity);
        SLOT& slot = Slot(key);
        if (!slot.isFilled) {
            slot.texts = make(entity);
            slot.key = key;
            slot.isFilled = true;
            ++m_count;
        }
        return slot.texts;
    }

private:
    using KEY = std::array<std::uint64_t, 4>;
    struct SLOT {
        KEY key;
        DXF_STYLE_TEXTS texts;
        bool isFilled = false;
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

    SLOT& Slot(const KEY& key)
    {
        const std::size_t mask = m_slots.size() - 1;
        std::size_t place = HashBytes(key.data(), sizeof(key), m_hashKey) & mask;
        while (m_slots[place].isFilled && m_slots[place].key != key)
            place = (place + 1) & mask;
        return m_slots[place];
    }

    void Grow()
    {
        std::vector<SLOT> old(std::max<std::size_t>(m_slots.size() * 2, 64));
        old.swap(m_slots);
        m_hashKey = HashKey(m_slots.data());
        for (const SLOT& slot : old)
            if (slot.isFilled)
                Slot(slot.key) = slot;
    }

    std::vector<SLOT> m_slots;
    std::size_t m_count = 0;
    std::uint64_t m_hashKey = 0;
};
