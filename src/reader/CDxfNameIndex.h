// Records by name.
#pragma once

#include "reader/Hash.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

// Finds the first of the records that were added under a name, in time that does not depend on their
// number. Record has a m_strName; the records outlive the index.
template <class Record>
class CDxfNameIndex {
public:
    // Forgets every record and makes room for so many. Throws std::bad_alloc.
    void Reset(std::size_t count)
    {
        m_slots.assign(std::bit_ceil(count * 2 + 1), nullptr);
        m_key = HashKey(m_slots.data());
    }

    // A later record of a name that is there is not kept, as a scan would not find it.
    void Add(const Record& record)
    {
        const Record*& slot = Slot(record.m_strName);
        if (slot == nullptr)
            slot = &record;
    }

    // Null when there is none; an empty name finds nothing.
    const Record* Find(std::wstring_view name)
    {
        return name.empty() || m_slots.empty() ? nullptr : Slot(name);
    }

private:
    const Record*& Slot(std::wstring_view name)
    {
        const std::size_t mask = m_slots.size() - 1;
        std::size_t slot = HashBytes(name.data(), name.size() * sizeof(wchar_t), m_key) & mask;
        while (m_slots[slot] != nullptr && !(m_slots[slot]->m_strName == name))
            slot = (slot + 1) & mask;
        return m_slots[slot];
    }

    std::vector<const Record*> m_slots; // open addressing, at most half filled
    std::uint64_t m_key = 1;
};
