// Records by name.
#pragma once

#include "base/CDxfHashIndex.h"
#include "base/Hash.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

// Finds the first of the records that were added under a name, in time that does not depend on their
// number. Record has a m_strName; the records outlive the index.
template <class Record>
class CDxfNameIndex {
public:
    CDxfNameIndex() = default;
    CDxfNameIndex(const CDxfNameIndex&) = delete; // its place is the key of its hashes
    CDxfNameIndex& operator=(const CDxfNameIndex&) = delete;

    // Forgets every record.
    void Clear()
    {
        m_records.clear();
        m_index = {};
    }

    // Only the first record of a name is kept, as a scan would find no other. Throws std::bad_alloc.
    void Add(const Record& record)
    {
        const std::uint64_t hash = Hash(record.m_strName);
        if (FindNumber(record.m_strName, hash) != CDxfHashIndex::kNone)
            return;
        m_index.Reserve();
        m_records.push_back(&record);
        m_index.Add(hash, static_cast<std::uint32_t>(m_records.size() - 1));
    }

    // Null if there is no such record; an empty name finds nothing.
    const Record* Find(std::wstring_view name) const
    {
        const std::uint32_t number = name.empty() ? CDxfHashIndex::kNone : FindNumber(name, Hash(name));
        return number == CDxfHashIndex::kNone ? nullptr : m_records[number];
    }

private:
    std::uint64_t Hash(std::wstring_view name) const
    {
        return HashBytes(name.data(), name.size() * sizeof(wchar_t), HashKey(this));
    }

    // Names are kept once, so the wanted name and the record's mostly have one address.
    std::uint32_t FindNumber(std::wstring_view name, std::uint64_t hash) const
    {
        return m_index.Find(hash, [&](std::uint32_t number) {
            const std::wstring_view known = m_records[number]->m_strName;
            return known.size() == name.size() && (known.data() == name.data() || known == name);
        });
    }

    std::vector<const Record*> m_records;
    CDxfHashIndex m_index;
};
