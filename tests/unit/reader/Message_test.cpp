#include "reader/CDxfMessage.h"

#include "base/CDxfStore.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

TEST(Message, ArgumentsAreInTheOrderOfTheFormat)
{
    CDxfStore store;
    const CDxfMessage message(L"%s ('%d' = '%s') Line:%d",
                              {store.Keep("Marker"), -7, std::string_view("value"), 12});
    EXPECT_STREQ(message.c_str(), L"Marker ('-7' = 'value') Line:12");
}

TEST(Message, PercentSignsAndLettersOfArgumentsAreTexts)
{
    const CDxfMessage message(L"'%s' Line:%d", {std::string_view("100%d %s %n"), 1});
    EXPECT_STREQ(message.c_str(), L"'100%d %s %n' Line:1");
}

TEST(Message, EmptyArgumentsAndFormatsAreEmpty)
{
    EXPECT_STREQ(CDxfMessage(L"", {}).c_str(), L"");
    EXPECT_STREQ(CDxfMessage(L"'%s%s'", {std::string_view(), DXF_STRING()}).c_str(), L"''");
}

TEST(Message, NumbersOf32BitsAreWhole)
{
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    EXPECT_STREQ(CDxfMessage(L"%d %d", {kLeast, -(kLeast + 1)}).c_str(), L"-2147483648 2147483647");
}

TEST(Message, TwoLongestLinesFit)
{
    CDxfStore store;
    const std::string marker(1023, 'm'), value(1023, 'v');
    const CDxfMessage message(L"%s ('%s')", {store.Keep(marker), std::string_view(value)});
    EXPECT_EQ(std::wstring(message.c_str()),
              std::wstring(1023, L'm') + L" ('" + std::wstring(1023, L'v') + L"')");
}

TEST(Message, TextThatIsLongerThanAnyMessageIsCut)
{
    const std::wstring text(5000, L'w');
    CDxfStore store;
    const std::wstring message = CDxfMessage(L"%s", {store.Keep(std::string(5000, 'w'))}).c_str();
    EXPECT_LT(message.size(), text.size());
    EXPECT_GE(message.size(), 2u * 1023);
    EXPECT_EQ(message, text.substr(0, message.size()));
}
