// What an arena makes besides blocks, whose tests are Store_test.cpp and StoreRoom_test.cpp.
#include "base/CDxfArena.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct Point {
    double x = 1.5;
    double y = -2.0;
};

class Named {
public:
    Named(std::wstring_view name, std::int32_t number) : m_name(name), m_number(number) {}

    std::wstring_view m_name;
    std::int32_t m_number;
};

} // namespace

TEST(Arena, ObjectIsMadeFromTheArgumentsThatItIsGiven)
{
    CDxfArena arena;
    const Point* const fresh = arena.New<Point>();
    const Point* const given = arena.New<Point>(3.0, 4.0);
    const Named* const named = arena.New<Named>(L"name", 7);
    EXPECT_EQ(fresh->x, 1.5);
    EXPECT_EQ(fresh->y, -2.0);
    EXPECT_EQ(given->x, 3.0);
    EXPECT_EQ(given->y, 4.0);
    EXPECT_EQ(named->m_name, L"name");
    EXPECT_EQ(named->m_number, 7);
}

TEST(Arena, CopyOfATextIsItsOwnAndAZeroFollowsIt)
{
    CDxfArena arena;
    std::wstring wide = L"walls";
    std::string narrow = "doors";
    const std::wstring_view wideCopy = arena.Copy(std::wstring_view(wide));
    const std::string_view narrowCopy = arena.Copy(std::string_view(narrow));
    wide = L"other";
    narrow = "other";
    EXPECT_EQ(wideCopy, L"walls");
    EXPECT_EQ(wideCopy.data()[5], L'\0');
    EXPECT_EQ(narrowCopy, "doors");
    EXPECT_EQ(narrowCopy.data()[5], '\0');
}

TEST(Arena, CopyOfNoTextIsAZero)
{
    CDxfArena arena;
    const std::string_view copy = arena.Copy(std::string_view());
    EXPECT_TRUE(copy.empty());
    EXPECT_EQ(copy.data()[0], '\0');
}

TEST(Arena, CopiesOfAllLengthsKeepApart)
{
    CDxfArena arena;
    std::vector<std::string_view> copies;
    for (std::size_t length = 0; length < 2000; ++length)
        copies.push_back(
            arena.Copy(std::string_view(std::string(length, static_cast<char>('a' + length % 26)))));
    for (std::size_t length = 0; length < copies.size(); ++length)
        ASSERT_EQ(copies[length], std::string(length, static_cast<char>('a' + length % 26)));
}
