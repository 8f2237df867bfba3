// The ANSI code page, as the system converts it.
#include "base/CodePage.h"

#include "base/Api_windows.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr UINT kWestern = 1252;

std::wstring Wide(std::string_view narrow)
{
    std::wstring wide(narrow.size(), L'\0');
    wide.resize(ToWide(narrow, wide.data()));
    return wide;
}

} // namespace

TEST(CodePage, EveryByteIsReadAsTheSystemReadsIt)
{
    for (int byte = 1; byte < 256; ++byte) {
        const std::string text = {'a', static_cast<char>(byte), 'b'};
        wchar_t wide[3];
        const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), 3, wide, 3);
        EXPECT_EQ(Wide(text), std::wstring(wide, static_cast<std::size_t>(size))) << byte;
    }
}

TEST(CodePage, WesternBytesAreCharacters)
{
    if (GetACP() != kWestern)
        GTEST_SKIP() << "The system's code page is another one.";
    EXPECT_EQ(Wide("\xE4\x80"), L"\u00E4\u20AC");
    EXPECT_EQ(ToNarrowPath(L"\u00E4\u20AC.dxf"), "\xE4\x80.dxf");
}

TEST(CodePage, CharacterThatTheCodePageLacksIsReplacedInAPath)
{
    if (GetACP() != kWestern)
        GTEST_SKIP() << "The system's code page is another one.";
    EXPECT_EQ(ToNarrowPath(L"\u4E2D.dxf"), "?.dxf");
}
