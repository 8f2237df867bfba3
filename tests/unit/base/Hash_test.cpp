// The hash and the index of names that is built on it.
#include "base/CDxfStore.h"
#include "base/Utf8.h"
#include "reader/CDxfNameIndex.h"

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

struct Record {
    DXF_STRING m_strName;
};

std::wstring Name(int number)
{
    return L"LAYER" + std::to_wstring(number);
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

TEST(NameIndex, FindsNothingBeforeItHasBeenFilled)
{
    CDxfNameIndex<Record> index;
    EXPECT_EQ(index.Find(L"a"), nullptr);
    EXPECT_EQ(index.Find(L""), nullptr);
}

TEST(NameIndex, FindsEachNameOfMany)
{
    CDxfStore store;
    std::vector<Record> records;
    constexpr int kNames = 200'000; // some pairs of so many have the same hash of 32 bits
    for (int i = 0; i < kNames; ++i)
        records.push_back({store.Keep(Utf8FromWide(Name(i)))});
    CDxfNameIndex<Record> index;
    for (const Record& record : records)
        index.Add(record);
    for (int i = 0; i < kNames; ++i) {
        const Record* const record = &records[static_cast<std::size_t>(i)];
        ASSERT_EQ(index.Find(Name(i)), record);
        ASSERT_EQ(index.Find(record->m_strName), record);
    }
    EXPECT_EQ(index.Find(L"LAYER200000"), nullptr);
    EXPECT_EQ(index.Find(L"LAYER"), nullptr);
}

TEST(NameIndex, FirstOfANameIsFound)
{
    CDxfStore store;
    const Record first = {store.Keep("a")}, second = {store.Keep("a")};
    CDxfNameIndex<Record> index;
    index.Add(first);
    index.Add(second);
    EXPECT_EQ(index.Find(L"a"), &first);
}

TEST(NameIndex, EmptyNameIsNotFoundThoughARecordHasIt)
{
    const Record record;
    CDxfNameIndex<Record> index;
    index.Add(record);
    EXPECT_EQ(index.Find(L""), nullptr);
}

TEST(NameIndex, ClearForgets)
{
    CDxfStore store;
    const Record record = {store.Keep("a")};
    CDxfNameIndex<Record> index;
    index.Add(record);
    index.Clear();
    EXPECT_EQ(index.Find(L"a"), nullptr);
}
