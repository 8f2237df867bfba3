// What the caller may choose about the root: its size, a style sheet, a background. The drawing stays.
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

using namespace svghost_tests;

namespace {

// 100 by 50 units with its stroke, and so 104 by 54 with the margin.
HostDocument& ThinLine(HostDocument& document)
{
    document.Set(document.Line(0, 0, 100, 50), L"stroke-width", L"0.000001");
    return document;
}

std::string Written(const HostDocument& document, double unit, const char* style = nullptr)
{
    SvgHostWriteOptions options{};
    options.unit = unit;
    options.style = style;
    return document.Write(options);
}

std::string RootAttribute(const std::string& text, const char* name)
{
    return ParsedSvg(text).Root().attribute(name).value();
}

double Millimetres(const std::string& text, const char* side)
{
    const std::string value = RootAttribute(text, side);
    EXPECT_TRUE(value.ends_with("mm")) << value;
    return std::stod(value);
}

// What is between the root's start and end tags.
std::string Inside(const std::string& text)
{
    const std::size_t start = text.find('>', text.find("<svg")) + 1;
    return text.substr(start, text.rfind("</svg>") - start);
}

} // namespace

TEST(Root, SizeIsInMillimetresWhenTheUnitIsKnown)
{
    HostDocument document;
    const std::string text = Written(ThinLine(document), 25.4);
    EXPECT_NEAR(Millimetres(text, "width"), 104 * 25.4, 0.001);
    EXPECT_NEAR(Millimetres(text, "height"), 54 * 25.4, 0.001);
}

TEST(Root, UnitChangesNothingButWidthAndHeight)
{
    HostDocument document;
    const std::string pixels = Written(ThinLine(document), 0);
    const std::string metres = Written(document, 1000);
    EXPECT_EQ(Inside(pixels), Inside(metres));
    EXPECT_EQ(RootAttribute(pixels, "viewBox"), RootAttribute(metres, "viewBox"));
    EXPECT_EQ(RootAttribute(pixels, "width"), "1024");
}

TEST(Root, SizeThatIsNoUsableNumberIsLeftToPixels)
{
    HostDocument document;
    ThinLine(document);
    const double infinite = std::numeric_limits<double>::infinity();
    for (const double unit : {-1.0, 1e300, 1e-320, infinite, std::nan("")})
        EXPECT_EQ(RootAttribute(Written(document, unit), "width"), "1024") << unit;
}

TEST(Root, SizeWithASideThatIsNoUsableNumberIsLeftToPixels)
{
    for (const bool isUpright : {false, true}) {
        HostDocument document;
        document.Line(0, 0, isUpright ? 10 : 1000, isUpright ? 1000 : 10);
        const std::string far =
            Written(document, 1e36); // one side is larger than any float, the other a 20th of it
        EXPECT_FALSE(RootAttribute(far, "width").ends_with("mm")) << far;
        EXPECT_FALSE(RootAttribute(far, "height").ends_with("mm")) << far;
        EXPECT_TRUE(RootAttribute(Written(document, 1e35), "height").ends_with("mm"));
    }
}

TEST(Root, StyleSheetIsFirstAndChangesNothingElse)
{
    HostDocument document;
    ThinLine(document);
    const std::string sheet = "line[stroke=\"a\"]{stroke:#000}/*<&\xFF*/";
    const std::string with = Written(document, 0, sheet.c_str());
    const ParsedSvg svg(with);
    const pugi::xml_node style = svg.Root().first_child();
    EXPECT_STREQ(style.name(), "style");
    EXPECT_STREQ(style.child_value(), "line[stroke=\"a\"]{stroke:#000}/*<&\xEF\xBF\xBD*/");
    const std::size_t end = with.find("</style>\n") + std::string("</style>\n").size();
    EXPECT_EQ(with.substr(0, with.find("<style>")) + with.substr(end), Written(document, 0));
}

TEST(Root, ViewBoxIsTheOneThatIsWritten)
{
    HostDocument document;
    const ViewBox box = ViewBoxOf(ParsedSvg(ThinLine(document)));
    SvgHostViewBox asked{};
    ASSERT_TRUE(svgHostGetViewBox(document.Get(), &asked));
    EXPECT_FLOAT_EQ(static_cast<float>(asked.x), static_cast<float>(box.x));
    EXPECT_FLOAT_EQ(static_cast<float>(asked.y), static_cast<float>(box.y));
    EXPECT_FLOAT_EQ(static_cast<float>(asked.width), static_cast<float>(box.width));
    EXPECT_FLOAT_EQ(static_cast<float>(asked.height), static_cast<float>(box.height));
    EXPECT_FALSE(asked.isMadeUp);
    EXPECT_FALSE(svgHostGetViewBox(nullptr, &asked));
    EXPECT_FALSE(svgHostGetViewBox(document.Get(), nullptr));
}

TEST(Root, ADocumentWithoutPlacesHasAViewBoxThatIsMadeUpAndNoPhysicalSize)
{
    HostDocument document;
    SvgHostViewBox asked{};
    ASSERT_TRUE(svgHostGetViewBox(document.Get(), &asked));
    EXPECT_TRUE(asked.isMadeUp);
    EXPECT_GT(asked.width, 0);
    EXPECT_EQ(Written(document, 25.4), Written(document, 0));
}

TEST(Root, TextsHaveTheFontsThatWereAskedForOrAnySansSerif)
{
    HostDocument document;
    ThinLine(document);
    SvgHostWriteOptions options{};
    EXPECT_NE(document.Write(options).find(" font-family=\"sans-serif\""), std::string::npos);
    options.fontFamily = "'A & B', serif";
    EXPECT_NE(document.Write(options).find(" font-family=\"'A &amp; B', serif\""), std::string::npos);
}

TEST(Root, NamesWhatMadeItWhenAsked)
{
    HostDocument document;
    ThinLine(document);
    SvgHostWriteOptions options{};
    EXPECT_EQ(document.Write(options).find("data-generator"), std::string::npos);
    const std::string unnamed = Inside(document.Write(options));
    options.generator = "a \"program\" & more";
    const std::string named = document.Write(options);
    EXPECT_EQ(RootAttribute(named, "data-generator"), "a \"program\" & more");
    EXPECT_EQ(Inside(named), unnamed);
}
