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

// What the file has, byte by byte, of every character of ASCII and of some beyond.
TEST(Xml, EachCharacterIsWrittenAsReadersTakeIt)
{
    constexpr wchar_t kBeyond[] = L"\x7F\x80\x00E9\x2028\xFFFD\U0001F600";
    const std::string beyond = "\x7F\xC2\x80\xC3\xA9\xE2\x80\xA8\xEF\xBF\xBD\xF0\x9F\x98\x80";
    std::wstring given;
    std::string attribute;
    std::string text;
    for (wchar_t unit = 1; unit < 0x7F; ++unit) {
        given += unit;
        const std::string plain = unit < 0x20 ? kReplacement : std::string(1, static_cast<char>(unit));
        attribute += unit == L'\t'   ? "&#09;"
                     : unit == L'\n' ? "&#10;"
                     : unit == L'\r' ? "&#13;"
                     : unit == L'"'  ? "&quot;"
                     : unit == L'&'  ? "&amp;"
                     : unit == L'<'  ? "&lt;"
                                     : plain;
        text += unit == L'\t'                    ? "\t"
                : unit == L'\n' || unit == L'\r' ? "\n"
                : unit == L'&'                   ? "&amp;"
                : unit == L'<'                   ? "&lt;"
                : unit == L'>'                   ? "&gt;"
                                                 : plain;
    }
    given += kBeyond;
    const HostDocument document;
    const QlmNode line = document.Line(0, 0, 1, 1);
    document.Set(line, L"odd", given.c_str());
    document.Set(line, L"fill-opacity", (L"." + given.substr(0, 39)).c_str()); // all before '('
    document.Text(0, 0, given.c_str());
    const std::string written = document.Write();
    EXPECT_NE(written.find(" data-odd=\"" + attribute + beyond + "\""), std::string::npos) << written;
    EXPECT_NE(written.find(" xml:space=\"preserve\">" + text + beyond + "</text>\n"), std::string::npos);
    const std::string start = attribute.substr(0, attribute.find('('));
    EXPECT_NE(written.find(" fill-opacity=\"." + start + "\""), std::string::npos) << written;
}

TEST(Xml, StyleSheetsAndBackgroundsAreEscapedInTheirPlaces)
{
    const HostDocument document;
    SvgHostWriteOptions options{};
    options.style = "a>b & \"<\"\t\r\n\x01\xC3\xA9\xED\xA0\x80\xFF";
    options.background = options.style;
    const std::string written = document.Write(options);
    const std::string replaced = std::string(kReplacement) + "\xC3\xA9" + kReplacement + kReplacement;
    EXPECT_NE(written.find("<style>a&gt;b &amp; \"&lt;\"\t\r\n" + replaced + "</style>\n"),
              std::string::npos);
    EXPECT_NE(written.find(" fill=\"a>b &amp; &quot;&lt;&quot;&#09;&#13;&#10;" + replaced + "\" />\n"),
              std::string::npos)
        << written;
}

TEST(Xml, ElementsAreOneALineAndEmptyOnesClosedAtOnce)
{
    const HostDocument document;
    document.Line(0, 0, 1, 1);
    document.Text(0, 0, L"");
    document.Group();
    const std::string written = document.Write();
    EXPECT_NE(written.find(">\n<line x1=\"0\" y1=\"0\" x2=\"1\" y2=\"1\" />\n<text "), std::string::npos)
        << written;
    EXPECT_NE(written.find("\"></text>\n<g>\n</g>\n</g>\n</svg>\n"), std::string::npos) << written;
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
    // XML readers take a carriage return in a text for a line feed.
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

TEST(Xml, FileSaysItsVersionAndEncoding)
{
    const HostDocument document;
    EXPECT_EQ(document.Write().rfind("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg ", 0), 0u);
}

TEST(Xml, BackgroundIsUnderTheDrawingAndEscaped)
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
