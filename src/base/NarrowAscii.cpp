#include "base/NarrowAscii.h"

#include "base/Sse2.h"

#include <cstddef>

namespace {

constexpr unsigned kNoAscii = ~0x7Fu;

#if defined(PLEXORN_SSE2)

constexpr std::size_t kStep = 16;
constexpr std::size_t kEach = kStep / sizeof(wchar_t); // characters of a load

// Sixteen characters; what they have besides ASCII is added to others.
void NarrowSixteen(const wchar_t* in, char* out, __m128i& others)
{
    const auto load = [&](std::size_t number) {
        const __m128i part = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in + number * kEach));
        others = _mm_or_si128(others, part);
        return part;
    };
    __m128i narrow;
    if constexpr (sizeof(wchar_t) == 2)
        narrow = _mm_packus_epi16(load(0), load(1));
    else
        narrow = _mm_packus_epi16(_mm_packs_epi32(load(0), load(1)), _mm_packs_epi32(load(2), load(3)));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), narrow);
}

// Writes as many as it can sixteen at a time, and returns their number.
std::size_t NarrowMost(std::wstring_view text, char* out, bool& isAscii)
{
    std::size_t at = 0;
    __m128i others = _mm_setzero_si128();
    for (; at + kStep <= text.size(); at += kStep)
        NarrowSixteen(text.data() + at, out + at, others);
    const __m128i mask = sizeof(wchar_t) == 2 ? _mm_set1_epi16(~0x7F) : _mm_set1_epi32(~0x7F);
    const __m128i isZero = _mm_cmpeq_epi8(_mm_and_si128(others, mask), _mm_setzero_si128());
    isAscii = _mm_movemask_epi8(isZero) == 0xFFFF;
    return at;
}

#else

std::size_t NarrowMost(std::wstring_view, char*, bool& isAscii)
{
    isAscii = true;
    return 0;
}

#endif

} // namespace

bool NarrowAscii(std::wstring_view text, char* out)
{
    bool isAscii = false;
    unsigned others = 0;
    for (std::size_t at = NarrowMost(text, out, isAscii); at != text.size(); ++at) {
        others |= static_cast<unsigned>(text[at]);
        out[at] = static_cast<char>(text[at]);
    }
    return isAscii && (others & kNoAscii) == 0;
}
