// Finds values by hash.
#pragma once

#include "base/Chunk.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <utility>

// Numbers of values by their hashes. The values are elsewhere, in the order in which they came. A drawing
// mostly asks for them in the same order, so most look-ups meet the cache; and growing moves eight bytes for
// each value, not the value.
class CDxfHashIndex {
public:
    static constexpr std::uint32_t kNone = UINT32_MAX;

    CDxfHashIndex() = default;
    CDxfHashIndex(CDxfHashIndex&& other) noexcept { *this = std::move(other); }
    CDxfHashIndex& operator=(CDxfHashIndex&& other) noexcept
    {
        std::swap(m_slots, other.m_slots);
        std::swap(m_size, other.m_size);
        std::swap(m_count, other.m_count);
        return *this;
    }
    ~CDxfHashIndex() { FreeChunk(m_slots, m_size * sizeof(Slot)); }

    // The number that was added with this hash and for which is(number) is true; kNone if there is no such
    // number.
    template <class Is>
    std::uint32_t Find(std::uint64_t hash, const Is& is) const
    {
        if (m_size == 0)
            return kNone;
        const std::uint32_t kept = Kept(hash);
        for (std::size_t place = kept & (m_size - 1);; place = (place + 1) & (m_size - 1)) {
            const Slot slot = m_slots[place];
            if (slot.next == 0)
                return kNone;
            if (slot.hash == kept && is(slot.next - 1))
                return slot.next - 1;
        }
    }

    // Makes room for one more, of at most four thousand million. Throws std::bad_alloc and then stays as it
    // was.
    void Reserve()
    {
        if (m_count >= kNone - 1)
            throw std::bad_alloc();
        if ((m_count + 1) * 2 > m_size)
            Grow();
    }

    // Adds a number, with room made before.
    void Add(std::uint64_t hash, std::uint32_t number)
    {
        Put({Kept(hash), number + 1});
        ++m_count;
    }

private:
    // Open addressing, a power of two of slots, at most half of them filled.
    struct Slot {
        std::uint32_t hash;
        std::uint32_t next; // the number after that of the entry, 0 in a free slot
    };
    static constexpr std::size_t kFewestSlots = 256;

    static std::uint32_t Kept(std::uint64_t hash) { return static_cast<std::uint32_t>(hash); }

    void Put(Slot added)
    {
        std::size_t place = added.hash & (m_size - 1);
        while (m_slots[place].next != 0)
            place = (place + 1) & (m_size - 1);
        m_slots[place] = added;
    }

    void Grow()
    {
        const std::size_t size = m_size == 0 ? kFewestSlots : m_size * 2;
        Slot* const slots = static_cast<Slot*>(AllocateChunk(size * sizeof(Slot)));
        std::memset(slots, 0, size * sizeof(Slot));
        Slot* const old = std::exchange(m_slots, slots);
        const std::size_t oldSize = std::exchange(m_size, size);
        for (std::size_t i = 0; i < oldSize; ++i)
            if (old[i].next != 0)
                Put(old[i]);
        FreeChunk(old, oldSize * sizeof(Slot));
    }

    Slot* m_slots = nullptr;
    std::size_t m_size = 0;
    std::size_t m_count = 0;
};
