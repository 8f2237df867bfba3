#include "base/CDxfStore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

// Blocks whose bytes are all set to a value of their own, to see whether they overlap.
struct Block {
    unsigned char* bytes;
    std::size_t size;
    unsigned char value;

    void Fill() const { std::fill_n(bytes, size, value); }
    bool IsWhole() const
    {
        return std::all_of(bytes, bytes + size, [&](unsigned char byte) { return byte == value; });
    }
};

struct Record {
    double real = 5.0;
    std::int32_t integer = -1;
    DXF_STRING text;
};

std::string Name(int number)
{
    return "name " + std::to_string(number);
}

} // namespace

TEST(Store, BlocksOfAllSizesAreAlignedAndDoNotOverlap)
{
    CDxfStore store;
    std::minstd_rand random(1);
    std::vector<Block> blocks;
    for (int i = 0; i < 3000; ++i) {
        const std::size_t most = i % 100 == 0 ? 600000 : i % 10 == 0 ? 5000 : 100;
        const std::size_t size = random() % most;
        blocks.push_back(
            {static_cast<unsigned char*>(store.Allocate(size)), size, static_cast<unsigned char>(i)});
        blocks.back().Fill();
    }
    for (const Block& block : blocks) {
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block.bytes) % alignof(Record), 0u);
        ASSERT_TRUE(block.IsWhole());
    }
}

TEST(Store, ResizedBlocksKeepTheirBytesAndLeaveTheOthersAlone)
{
    CDxfStore store;
    std::minstd_rand random(2);
    std::vector<Block> blocks(40);
    for (std::size_t i = 0; i < blocks.size(); ++i)
        blocks[i] = {nullptr, 0, static_cast<unsigned char>(i + 1)};
    for (int i = 0; i < 500; ++i) {
        Block& block = blocks[random() % blocks.size()];
        const std::size_t size = block.size + random() % (i % 50 == 0 ? 400000 : 200);
        block.bytes = static_cast<unsigned char*>(store.Resize(block.bytes, block.size, size));
        ASSERT_TRUE(block.IsWhole());
        block.size = size;
        block.Fill();
    }
    for (const Block& block : blocks)
        ASSERT_TRUE(block.IsWhole());
}

TEST(Store, LastBlockGrowsInItsPlace)
{
    CDxfStore store;
    void* const block = store.Allocate(100);
    EXPECT_EQ(store.Resize(block, 100, 1000), block);
    store.Allocate(1);
    EXPECT_NE(store.Resize(block, 1000, 2000), block);
}

TEST(Store, BlockThatIsTooLargeForAnyMemoryIsRefusedAndNothingIsLost)
{
    CDxfStore store;
    const DXF_STRING text = store.Keep("text");
    void* const block = store.Allocate(100);
    EXPECT_THROW(store.Resize(block, 100, std::numeric_limits<std::size_t>::max() - 1), std::bad_alloc);
    EXPECT_EQ(text, L"text");
    EXPECT_EQ(store.Resize(block, 100, 200), block);
}

TEST(Store, NewRecordHasItsDefaults)
{
    CDxfStore store;
    for (int i = 0; i < 2000; ++i) {
        const Record* const record = store.New<Record>();
        ASSERT_EQ(record->real, 5.0);
        ASSERT_EQ(record->integer, -1);
        ASSERT_TRUE(record->text.empty());
    }
}

TEST(Store, KeptTextIsACopyThatEndsWithAZero)
{
    CDxfStore store;
    std::string narrow = "Walls";
    const DXF_STRING text = store.Keep(narrow);
    narrow = "other";
    EXPECT_EQ(text, L"Walls");
    EXPECT_EQ(text.size(), 5u);
    EXPECT_EQ(text.c_str()[5], L'\0');
    EXPECT_FALSE(text.empty());
}

TEST(Store, EmptyTextIsNeverNull)
{
    CDxfStore store;
    for (const DXF_STRING& text : {DXF_STRING(), store.Keep(""), store.KeepOnce("")}) {
        EXPECT_STREQ(text.c_str(), L"");
        EXPECT_EQ(text.size(), 0u);
        EXPECT_TRUE(text.empty());
    }
}

TEST(Store, SameNameIsKeptOnce)
{
    CDxfStore store;
    const DXF_STRING first = store.KeepOnce("Walls");
    EXPECT_EQ(store.KeepOnce(std::string("Walls")).c_str(), first.c_str());
    EXPECT_NE(store.Keep("Walls").c_str(), first.c_str());
    EXPECT_EQ(store.KeepOnce("walls"), L"walls");
    EXPECT_EQ(store.KeepOnce("Wall"), L"Wall");
    EXPECT_EQ(store.KeepOnce("Walls "), L"Walls ");
}

TEST(Store, ManyNamesAreEachKeptOnce)
{
    CDxfStore store;
    std::vector<DXF_STRING> names;
    std::set<const wchar_t*> places;
    for (int i = 0; i < 20000; ++i) {
        names.push_back(store.KeepOnce(Name(i)));
        places.insert(names.back().c_str());
    }
    EXPECT_EQ(places.size(), names.size());
    for (int i = 0; i < 20000; ++i) {
        const std::string name = Name(i);
        ASSERT_EQ(names[static_cast<std::size_t>(i)], std::wstring(name.begin(), name.end()));
        ASSERT_EQ(store.KeepOnce(name).c_str(), names[static_cast<std::size_t>(i)].c_str());
    }
}

TEST(Store, AppendBuildsATextPieceByPiece)
{
    CDxfStore store;
    DXF_STRING text;
    std::wstring expected;
    for (int i = 0; i < 60000; ++i) { // past the size that gets a chunk of its own
        const std::string piece = Name(i);
        store.Append(text, piece);
        expected.append(piece.begin(), piece.end());
    }
    EXPECT_TRUE(text == expected);
    EXPECT_EQ(text.c_str()[text.size()], L'\0');
}

TEST(Store, StartedTextIsEmptyAndStaysWhereItIsUntilItsRoomIsFull)
{
    CDxfStore store;
    DXF_STRING text = store.Start(6);
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(text.c_str()[0], L'\0');
    const wchar_t* const place = text.c_str();
    store.Append(text, "walls");
    store.Keep("between");
    store.Append(text, "!");
    EXPECT_EQ(text.c_str(), place);
    EXPECT_TRUE(text == L"walls!");
    store.Append(text, " and doors");
    EXPECT_TRUE(text == L"walls! and doors");
}

TEST(Store, AppendOfNothingToNothingGivesAnEmptyText)
{
    CDxfStore store;
    DXF_STRING text;
    store.Append(text, "");
    EXPECT_STREQ(text.c_str(), L"");
    store.Append(text, "a");
    store.Append(text, "");
    EXPECT_EQ(text, L"a");
}

TEST(Store, TextsThatGrowInTurnKeepApart)
{
    CDxfStore store;
    std::vector<DXF_STRING> texts(3);
    std::vector<std::wstring> expected(3);
    std::minstd_rand random(3);
    for (int i = 0; i < 3000; ++i) {
        const std::size_t which = random() % 3;
        const std::string piece = Name(i);
        store.Append(texts[which], piece);
        expected[which].append(piece.begin(), piece.end());
        store.Keep(piece);
        ASSERT_EQ(texts[which], expected[which]);
    }
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(texts[i], expected[i]);
}

TEST(Store, AppendToAKeptTextLeavesTheKeptOneAlone)
{
    CDxfStore store;
    const DXF_STRING kept = store.KeepOnce("Walls");
    DXF_STRING text = kept;
    store.Append(text, " and doors");
    EXPECT_EQ(text, L"Walls and doors");
    EXPECT_EQ(kept, L"Walls");
}

TEST(String, ComparesByItsCharacters)
{
    CDxfStore store;
    EXPECT_TRUE(store.Keep("a") == store.Keep("a"));
    EXPECT_FALSE(store.Keep("a") == store.Keep("A"));
    EXPECT_FALSE(store.Keep("a") == store.Keep("ab"));
    EXPECT_FALSE(store.Keep("a") == DXF_STRING());
    EXPECT_TRUE(DXF_STRING() == store.Keep(""));
    EXPECT_TRUE(store.Keep("a") == L"a");
    EXPECT_FALSE(store.Keep("a") == L"");
}
