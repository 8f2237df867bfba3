// Storage that grows and is freed at once.
#ifndef SVGHOST_ARENA_H
#define SVGHOST_ARENA_H

#include <cstddef>
#include <memory>
#include <new>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace svghost {

// Hands out storage that lives as long as the arena itself. Nothing is freed singly and no destructor runs,
// so it takes only things that need none. Throws std::bad_alloc when memory is short.
class Arena {
public:
    template <class T, class... Arguments>
    T* make(Arguments&&... arguments)
    {
        static_assert(std::is_trivially_destructible_v<T>);
        static_assert(alignof(T) <= kAlignment);
        return new (allocate(sizeof(T))) T{std::forward<Arguments>(arguments)...};
    }

    // A copy of text, with a zero behind it that the view does not count.
    template <class Char>
    std::basic_string_view<Char> keep(std::basic_string_view<Char> text)
    {
        Char* copy = static_cast<Char*>(allocate((text.size() + 1) * sizeof(Char)));
        text.copy(copy, text.size());
        copy[text.size()] = Char();
        return {copy, text.size()};
    }

private:
    static constexpr std::size_t kAlignment = 8;
    static constexpr std::size_t kBlockSize = std::size_t(1) << 16;

    void* allocate(std::size_t size)
    {
        size = (size + kAlignment - 1) & ~(kAlignment - 1);
        if (size > m_left)
            return allocateBlock(size);
        std::byte* place = m_next;
        m_next += size;
        m_left -= size;
        return place;
    }

    // Big pieces get a block of their own, so that the rest of the current one is not lost.
    void* allocateBlock(std::size_t size)
    {
        const bool own = size > kBlockSize / 4;
        m_blocks.push_back(std::make_unique_for_overwrite<std::byte[]>(own ? size : kBlockSize));
        std::byte* place = m_blocks.back().get();
        if (!own) {
            m_next = place + size;
            m_left = kBlockSize - size;
        }
        return place;
    }

    std::vector<std::unique_ptr<std::byte[]>> m_blocks;
    std::byte* m_next = nullptr;
    std::size_t m_left = 0;
};

} // namespace svghost

#endif
