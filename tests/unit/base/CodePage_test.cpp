// What holds in every code page. The rest is in CodePage_test_posix.cpp and CodePage_test_windows.cpp.
#include "base/CodePage.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::wstring Wide(std::string_view narrow)
{
    std::wstring wide(narrow.size() + 1, L'#');
    const std::size_t size = ToWide(narrow, wide.data());
    EXPECT_LE(size, narrow.size());
    EXPECT_EQ(wide[narrow.size()], L'#') << "written past the room";
    return wide.substr(0, size);
}

} // namespace

TEST(CodePage, EveryAsciiCharacterStaysWhatItIs)
{
    std::string narrow;
    std::wstring wide;
    for (char character = 1; character != 127; ++character) {
        narrow += character;
        wide += static_cast<wchar_t>(character);
    }
    EXPECT_EQ(Wide(narrow), wide);
    EXPECT_EQ(ToNarrowPath(wide.c_str()), narrow);
}

TEST(CodePage, EmptyTextsStayEmpty)
{
    EXPECT_EQ(Wide(""), L"");
    EXPECT_EQ(ToNarrowPath(L""), "");
}

TEST(CodePage, PathComesBackAsItWas)
{
    const std::string narrow = ToNarrowPath(L"Pl\u00E4ne/\u00DCbersicht.dxf");
    EXPECT_EQ(Wide(narrow), L"Pl\u00E4ne/\u00DCbersicht.dxf");
}
