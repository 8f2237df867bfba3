#include "base/CDxfStore.h"
#include "base/DXF_HANDLE.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(Handle, IsEmptyUntilItIsKept)
{
    CDxfStore store;
    EXPECT_EQ(DXF_HANDLE().Wide(), L"");
    EXPECT_EQ(store.KeepHandle({}).Wide(), L"");
    EXPECT_TRUE(store.KeepHandle("") == DXF_HANDLE());
}

TEST(Handle, OfAnyLengthIsGivenBack)
{
    CDxfStore store;
    for (std::size_t length = 1; length <= 40; ++length) {
        const std::string text = std::string("0123456789ABCDEF0123456789ABCDEF01234567").substr(40 - length);
        EXPECT_EQ(store.KeepHandle(text).Wide(), std::wstring(text.begin(), text.end()));
    }
}

TEST(Handle, OfOtherCharactersIsConvertedLikeAnyText)
{
    CDxfStore store;
    for (std::size_t length = 1; length <= 9; ++length)
        for (std::size_t place = 0; place < length; ++place) {
            std::string text(length, 'A');
            text[place] = '\xFF';
            EXPECT_EQ(store.KeepHandle(text).Wide(), std::wstring(store.Keep(text).c_str())) << text;
        }
    EXPECT_EQ(store.KeepHandle("ab\xC3\xA4").Wide(), std::wstring(store.Keep("ab\xC3\xA4").c_str()));
}

TEST(Handle, EqualsWhatWasKeptFromTheSameText)
{
    CDxfStore store, other;
    for (const std::string text : {"1F", "1234567", "12345678", "123456789ABCDEF0"}) {
        EXPECT_TRUE(store.KeepHandle(text) == store.KeepHandle(text)) << text;
        EXPECT_TRUE(store.KeepHandle(text) == other.KeepHandle(text)) << text;
        EXPECT_FALSE(store.KeepHandle(text) == store.KeepHandle(text + "0")) << text;
        EXPECT_FALSE(store.KeepHandle(text) == store.KeepHandle("A" + text.substr(1))) << text;
        EXPECT_FALSE(store.KeepHandle(text) == DXF_HANDLE()) << text;
    }
}

// Entities of one owner repeat its handle.
TEST(Handle, ThatIsLongIsKeptOnce)
{
    CDxfStore store;
    const void* const before = store.Allocate(8);
    store.KeepHandle("123456789");
    char* const between = static_cast<char*>(store.Allocate(8));
    EXPECT_NE(between, static_cast<const char*>(before) + 8);
    store.KeepHandle("123456789");
    EXPECT_EQ(store.Allocate(8), between + 8);
}

} // namespace
