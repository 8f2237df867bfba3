#include "base/NarrowAscii.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

TEST(NarrowAscii, TextsOfAnyLength)
{
    for (std::size_t size = 0; size < 70; ++size) {
        std::wstring wide;
        std::string narrow;
        for (std::size_t i = 0; i < size; ++i) {
            wide += static_cast<wchar_t>(1 + 17 * i % 127);
            narrow += static_cast<char>(1 + 17 * i % 127);
        }
        std::string out(size + 1, 'x');
        EXPECT_TRUE(NarrowAscii(wide, out.data())) << size;
        EXPECT_EQ(out, narrow + 'x');
    }
}

TEST(NarrowAscii, OneCharacterBeyondAsciiAnywhere)
{
    for (std::size_t place = 0; place < 40; ++place)
        for (const wchar_t other : {L'\x80', L'\xFF', L'\x100', L'\x4E00', L'\x8031', L'\xFFFF'}) {
            std::wstring wide(40, L'1');
            wide[place] = other;
            std::string out(wide.size(), ' ');
            EXPECT_FALSE(NarrowAscii(wide, out.data())) << place << ' ' << static_cast<unsigned>(other);
        }
}

TEST(NarrowAscii, CharactersOfMoreThanSixteenBits)
{
    if (sizeof(wchar_t) < 4)
        GTEST_SKIP() << "they are two characters here";
    for (std::size_t place = 0; place < 40; ++place)
        for (const std::uint32_t other : {0x10031u, 0x80000031u, 0xFFFFFF31u}) {
            std::wstring wide(40, L'1');
            wide[place] = static_cast<wchar_t>(other);
            std::string out(wide.size(), ' ');
            EXPECT_FALSE(NarrowAscii(wide, out.data())) << place << ' ' << other;
        }
}
