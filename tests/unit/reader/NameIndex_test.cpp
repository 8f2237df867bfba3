#include "reader/CDxfNameIndex.h"

#include "base/CDxfStore.h"
#include "base/Utf8.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Record {
    DXF_STRING m_strName;
};

std::wstring Name(int number)
{
    return L"LAYER" + std::to_wstring(number);
}

} // namespace

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
