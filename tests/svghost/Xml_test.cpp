// Whatever a drawing holds, the file is well-formed XML and reads back as it was.
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace svghost_tests;

namespace {

constexpr const char* kReplacement = "\xEF\xBF\xBD";

std::string TextWritten(const std::wstring& text)
{
    const HostDocument document;
    document.Text(0, 0, text.c_str());
    return ParsedSvg(document).First("text").text().get();
}

} // namespace

TEST(Xml, MarkupIsEscaped)
{
    EXPECT_EQ(TextWritten(L"a<b>&\"c'</text>]]>"), "a<b>&\"c'</text>]]>");
    const HostDocument document;
    document.Set(document.Line(0, 0, 1, 1), L"stroke", L"\"><script>&amp;");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("line").attribute("stroke").value(), "\"><script>&amp;");
    EXPECT_FALSE(svg.First("script"));
}

TEST(Xml, ControlCharactersAreReplaced)
{
    std::string expected;
    std::wstring text;
    for (wchar_t unit = 1; unit < 0x20; ++unit) {
        text += unit;
        const bool allowed = unit == L'\t' || unit == L'\n' || unit == L'\r';
        expected += allowed ? std::string(1, static_cast<char>(unit)) : kReplacement;
    }
    const HostDocument document;
    document.Set(document.Line(0, 0, 1, 1), L"odd", text.c_str());
    EXPECT_EQ(ParsedSvg(document).First("line").attribute("data-odd").value(), expected);
    // No XML reader tells a carriage return in a text from a line feed.
    std::replace(expected.begin(), expected.end(), '\r', '\n');
    EXPECT_EQ(TextWritten(text), expected);
}

TEST(Xml, LoneSurrogatesAreReplaced)
{
    const std::string replaced = std::string("a") + kReplacement + "b";
    EXPECT_EQ(TextWritten(L"a\xD800"
                          L"b"),
              replaced);
    EXPECT_EQ(TextWritten(L"a\xDC00"
                          L"b"),
              replaced);
    EXPECT_EQ(TextWritten(L"\xDBFF"), kReplacement);
    EXPECT_EQ(TextWritten(L"\xDC00\xD800"), std::string(kReplacement) + kReplacement);
}

TEST(Xml, CharactersOutsideTheBasicPlaneAreWhole)
{
    // On Windows this literal is a pair of surrogates.
    EXPECT_EQ(TextWritten(L"\U0001D11E\U0010FFFD"), "\xF0\x9D\x84\x9E\xF4\x8F\xBF\xBD");
}

TEST(Xml, NonCharactersAreReplaced)
{
    EXPECT_EQ(TextWritten(L"\xFFFE\xFFFF\xFFFD"), std::string(kReplacement) + kReplacement + kReplacement);
}

#if WCHAR_MAX > 0xFFFF
TEST(Xml, ValuesBeyondUnicodeAreReplaced)
{
    const std::wstring text{static_cast<wchar_t>(0x110000), static_cast<wchar_t>(0x7FFFFFFF),
                            static_cast<wchar_t>(-1)};
    EXPECT_EQ(TextWritten(text), std::string(kReplacement) + kReplacement + kReplacement);
}
#endif

TEST(Xml, EveryUnitGivesAFileThatParses)
{
    std::wstring text;
    for (unsigned unit = 1; unit <= 0xFFFF; ++unit)
        text += static_cast<wchar_t>(unit);
    const HostDocument document;
    document.Text(0, 0, text.c_str());
    document.Begin(text.c_str());
    document.End();
    document.Use(text.c_str(), 0, 0);
    document.Set(document.Line(0, 0, 1, 1), L"stroke", text.c_str());
    document.Set(document.Line(0, 0, 1, 1), L"odd", text.c_str());
    const std::string written = document.Write();
    ParsedSvg svg(written);
    EXPECT_TRUE(svg.First("use"));
    for (const char byte : written)
        EXPECT_TRUE(static_cast<unsigned char>(byte) >= 0x20 || byte == '\n' || byte == '\t');
}

TEST(Xml, FileTellsItsVersionAndEncoding)
{
    const HostDocument document;
    EXPECT_EQ(document.Write().rfind("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg ", 0), 0u);
}

TEST(Xml, BackgroundStandsBehindTheDrawingAndIsEscaped)
{
    const HostDocument document;
    document.Line(0, 0, 10, 10);
    const ParsedSvg svg(document.Write("\"red\"<\x01\xFF"));
    const pugi::xml_node rect = svg.Root().child("rect");
    ASSERT_TRUE(rect);
    EXPECT_EQ(rect.attribute("fill").value(), std::string("\"red\"<") + kReplacement + kReplacement);
    EXPECT_EQ(rect.next_sibling(), svg.Drawing());
    const ViewBox box = ViewBoxOf(svg);
    EXPECT_LE(rect.attribute("x").as_double(), box.x);
    EXPECT_LE(rect.attribute("y").as_double(), box.y);
    EXPECT_GE(rect.attribute("x").as_double() + rect.attribute("width").as_double(), box.x + box.width);
    EXPECT_GE(rect.attribute("y").as_double() + rect.attribute("height").as_double(), box.y + box.height);
    EXPECT_FALSE(ParsedSvg(document).Root().child("rect"));
}
