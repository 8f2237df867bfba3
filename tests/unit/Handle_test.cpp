#include "reader/CDxfStore.h"
#include "reader/DXF_HANDLE.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(Handle, IsEmptyUntilItIsKept)
{
    CDxfStore store;
    for (const DXF_HANDLE& handle : {DXF_HANDLE(), store.KeepHandle("")}) {
        EXPECT_TRUE(handle.empty());
        EXPECT_EQ(handle.size(), 0u);
        EXPECT_EQ(handle.Wide(), L"");
    }
}

TEST(Handle, OfAnyLengthIsGivenBack)
{
    CDxfStore store;
    for (std::size_t length = 1; length <= 40; ++length) {
        const std::string text = std::string("0123456789ABCDEF0123456789ABCDEF01234567").substr(40 - length);
        const DXF_HANDLE handle = store.KeepHandle(text);
        EXPECT_FALSE(handle.empty());
        EXPECT_EQ(handle.size(), length);
        EXPECT_EQ(handle.Wide(), std::wstring(text.begin(), text.end()));
    }
}

TEST(Handle, OfOtherCharactersIsConvertedLikeAnyText)
{
    CDxfStore store;
    for (const std::string text :
         {"\xC3\xA4", "abc\xC3\xA4xy", "\x80", "12345\xFF", "abcdef\xC3\xA4\xC3\xA4"})
        EXPECT_EQ(store.KeepHandle(text).Wide(), std::wstring(store.Keep(text).c_str())) << text;
}

TEST(Handle, EqualsWhatWasKeptFromTheSameText)
{
    CDxfStore store;
    for (const std::string text : {"1F", "1234567", "12345678", "123456789ABCDEF0"}) {
        EXPECT_TRUE(store.KeepHandle(text) == store.KeepHandle(text)) << text;
        EXPECT_FALSE(store.KeepHandle(text) == store.KeepHandle(text + "0")) << text;
        EXPECT_FALSE(store.KeepHandle(text) == store.KeepHandle("A" + text.substr(1))) << text;
        EXPECT_FALSE(store.KeepHandle(text) == DXF_HANDLE()) << text;
        EXPECT_TRUE(store.KeepHandle(text) == std::wstring(text.begin(), text.end())) << text;
    }
}

} // namespace
