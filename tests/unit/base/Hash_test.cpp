#include "base/Hash.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace {

std::uint64_t HashOf(std::string_view text, std::uint64_t key = 1)
{
    return HashBytes(text.data(), text.size(), key);
}

} // namespace

TEST(Hash, ProductIsThatOf128Bits)
{
    constexpr std::uint64_t kMost = ~std::uint64_t{0};
    EXPECT_EQ(MultiplyAndFold(kMost, kMost), (kMost - 1) ^ 1);
    EXPECT_EQ(MultiplyAndFold(std::uint64_t{1} << 32, std::uint64_t{1} << 32), 1u);
    EXPECT_EQ(MultiplyAndFold(0x123456789ABCDEF0u, 0x0FEDCBA987654321u),
              0x0121FA00AD77D742u ^ 0x2236D88FE5618CF0u);
    EXPECT_EQ(MultiplyAndFold(0xFFFFFFFF00000001u, 0x00000001FFFFFFFFu),
              0x00000001FFFFFFFDu ^ 0x00000002FFFFFFFFu);
    EXPECT_EQ(MultiplyAndFold(0, kMost), 0u);
}

TEST(Hash, IsTheSameForTheSameBytesAndKey)
{
    EXPECT_EQ(HashOf("Walls"), HashOf(std::string("Walls")));
    EXPECT_EQ(HashOf(""), HashOf(std::string()));
}

TEST(Hash, EveryByteTheLengthAndTheKeyCount)
{
    const std::string text = "a text of 23 characters";
    std::set<std::uint64_t> hashes = {HashOf(text), HashOf(text, 3)};
    std::size_t count = hashes.size();
    EXPECT_EQ(count, 2u);
    for (std::size_t i = 0; i < text.size(); ++i)
        for (int bit = 0; bit < 8; ++bit, ++count) {
            std::string changed = text;
            changed[i] = static_cast<char>(changed[i] ^ (1 << bit));
            hashes.insert(HashOf(changed));
        }
    for (std::size_t size = 0; size < text.size(); ++size, ++count)
        hashes.insert(HashOf(text.substr(0, size)));
    for (std::size_t size = 1; size <= 8; ++size, ++count)
        hashes.insert(HashOf(text + std::string(size, '\0')));
    EXPECT_EQ(hashes.size(), count);
}

TEST(Hash, NumberedNamesSpreadOverTheSlots)
{
    constexpr std::size_t kSlots = 4096;
    std::vector<int> names(kSlots);
    for (int i = 0; i < 4096; ++i)
        ++names[HashOf("LAYER" + std::to_string(i)) % kSlots];
    EXPECT_LE(*std::max_element(names.begin(), names.end()), 12);
}

TEST(Hash, KeysOfTwoObjectsDiffer)
{
    const int objects[2] = {};
    EXPECT_NE(HashKey(&objects[0]), HashKey(&objects[1]));
}

TEST(Hash, TextsAreTheSameWhenEveryByteIs)
{
    for (std::size_t size = 0; size <= 40; ++size) {
        const std::string text(size, 'x');
        std::string other = text;
        EXPECT_TRUE(EqualBytes(text.data(), other.data(), size)) << size;
        for (char& byte : other) {
            byte ^= 1;
            EXPECT_FALSE(EqualBytes(text.data(), other.data(), size)) << size;
            byte ^= 1;
        }
    }
}
