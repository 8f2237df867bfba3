#include "prepare/drawing/UnicodeEscape.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

TEST(UnicodeEscape, HasFourDigitsAndMayBeAPair)
{
    const auto read = [](const char* text) {
        const UnicodeEscape escape = ReadUnicodeEscape(text);
        return std::pair(escape.size, escape.character);
    };
    EXPECT_EQ(read("\\U+5C42x"), std::pair(std::size_t{7}, char32_t{0x5C42}));
    EXPECT_EQ(read("\\u+5c42"), std::pair(std::size_t{7}, char32_t{0x5C42}));
    EXPECT_EQ(read("\\U+D83D\\U+DE00"), std::pair(std::size_t{14}, char32_t{0x1F600}));
    EXPECT_EQ(read("\\U+D83D\\U+0041"), std::pair(std::size_t{7}, char32_t{0xD83D}));
    for (const char* text : {"", "\\U+5C4", "\\U+5C4g", "\\M+15C42", "x\\U+5C42", "U+5C42"})
        EXPECT_EQ(read(text).first, 0u) << text;
}

TEST(UnicodeEscape, NamesHaveTheLettersThatTheySpellOut)
{
    EXPECT_EQ(NameWithoutEscapes("a\\U+00E9\\U+00E8b"), "a\xC3\xA9\xC3\xA8"
                                                        "b");
    EXPECT_EQ(NameWithoutEscapes("\\U+005CU+0041"), "\\U+0041");
    EXPECT_EQ(NameWithoutEscapes("\\U+D83D"), "\xEF\xBF\xBD");
    EXPECT_EQ(NameWithoutEscapes("C:\\dir\\x"), "C:\\dir\\x");
}

// A name loses the blanks around it when it is read again.
TEST(UnicodeEscape, BlanksAndControlCharactersOfNamesStayEscapes)
{
    for (const char* name : {"\\U+0020", "\\U+000A", "\\U+007F", "\\U+009F"})
        EXPECT_EQ(NameWithoutEscapes(name), name);
}

} // namespace
} // namespace prepare
