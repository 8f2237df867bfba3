// A growable array in a reader's storage.
#pragma once

#include "base/CDxfStore.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <type_traits>

// Values in the order in which they were added. The storage belongs to the store that it was filled from and
// lives as long as the store does.
template <class Value>
class DXF_LIST {
    static_assert(std::is_trivially_copyable_v<Value>);

public:
    const Value* begin() const { return m_values; }
    const Value* end() const { return m_values + m_size; }
    std::size_t size() const { return m_size; }
    bool empty() const { return m_size == 0; }
    const Value& operator[](std::size_t index) const { return m_values[index]; }
    const Value& back() const { return m_values[m_size - 1]; }

    // Throws std::bad_alloc, with the list unchanged, when memory is short.
    void Add(CDxfStore& store, const Value& value)
    {
        if (m_size == m_capacity)
            Grow(store);
        ::new (static_cast<void*>(m_values + m_size)) Value(value);
        ++m_size;
    }

    // Gives back the room after the last value, if nothing has been made in the store since.
    void Shrink(CDxfStore& store)
    {
        if (store.Shrink(m_values, m_capacity * sizeof(Value), m_size * sizeof(Value)))
            m_capacity = m_size;
    }

private:
    void Grow(CDxfStore& store)
    {
        if (m_capacity > std::numeric_limits<std::uint32_t>::max() / 2)
            throw std::bad_alloc();
        const std::uint32_t capacity = m_capacity == 0 ? 4 : m_capacity * 2;
        m_values =
            static_cast<Value*>(store.Resize(m_values, m_capacity * sizeof(Value), capacity * sizeof(Value)));
        m_capacity = capacity;
    }

    Value* m_values = nullptr;
    std::uint32_t m_size = 0;
    std::uint32_t m_capacity = 0;
};
