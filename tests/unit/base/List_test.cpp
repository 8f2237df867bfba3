#include "base/DXF_LIST.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

template <class Value>
std::vector<Value> ValuesOf(const DXF_LIST<Value>& list)
{
    return {list.begin(), list.end()};
}

} // namespace

TEST(List, IsEmptyAtFirst)
{
    const DXF_LIST<int> list;
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.size(), 0u);
    EXPECT_EQ(list.begin(), list.end());
}

TEST(List, KeepsValuesInTheirOrder)
{
    CDxfStore store;
    DXF_LIST<int> list;
    for (const int value : {3, 1, 2, 1, 5})
        list.Add(store, value);
    EXPECT_EQ(ValuesOf(list), (std::vector{3, 1, 2, 1, 5}));
    EXPECT_EQ(list.size(), 5u);
    EXPECT_FALSE(list.empty());
    EXPECT_EQ(list[2], 2);
    EXPECT_EQ(list.back(), 5);
}

TEST(List, GrowsToAnySize)
{
    CDxfStore store;
    DXF_LIST<double> list;
    for (int i = 0; i < 300000; ++i)
        list.Add(store, i / 2.0);
    ASSERT_EQ(list.size(), 300000u);
    for (std::size_t i = 0; i < list.size(); ++i)
        ASSERT_EQ(list[i], static_cast<double>(i) / 2.0);
}

TEST(List, ListsThatGrowInTurnKeepApart)
{
    CDxfStore store;
    std::minstd_rand random(1);
    std::vector<DXF_LIST<int>> lists(5);
    std::vector<std::vector<int>> expected(5);
    for (int i = 0; i < 20000; ++i) {
        const std::size_t which = random() % lists.size();
        lists[which].Add(store, i);
        expected[which].push_back(i);
        if (i % 7 == 0)
            store.Allocate(static_cast<std::size_t>(i) % 50);
    }
    for (std::size_t i = 0; i < lists.size(); ++i)
        EXPECT_TRUE(ValuesOf(lists[i]) == expected[i]);
}

TEST(List, KeepsItsValuesAndGrowsOnWhenItWasShrunk)
{
    CDxfStore store;
    std::minstd_rand random(2);
    for (const int most : {0, 1, 3, 4, 5, 1000, 100000}) {
        DXF_LIST<int> list;
        std::vector<int> expected;
        for (int round = 0; round < 3; ++round) {
            for (int i = 0; i < most; ++i) {
                list.Add(store, i);
                expected.push_back(i);
            }
            list.Shrink(store);
            int* const other = static_cast<int*>(store.Allocate(64));
            std::fill_n(other, 16, -1);
            ASSERT_TRUE(ValuesOf(list) == expected) << most;
        }
    }
}
