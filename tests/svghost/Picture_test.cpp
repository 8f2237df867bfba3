// What the caller may choose about the picture: the scale of its size, the sheet that strokes are of, and
// what it frames.
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

using namespace svghost_tests;

namespace {

constexpr double kSheet = 420;

void Thick(const HostDocument& document, QlmNode node, const wchar_t* width)
{
    document.Set(node, L"stroke-width", width);
}

// A line from one corner to the other: the drawing is so wide and high.
void Sized(const HostDocument& document, float width, float height)
{
    Thick(document, document.Line(0, 0, width, height), L"0.500000");
}

SvgHostPicture PictureWith(const HostDocument& document, const SvgHostWriteOptions& options)
{
    SvgHostPicture picture{};
    EXPECT_TRUE(svgHostGetPicture(document.Get(), &options, &picture));
    return picture;
}

SvgHostWriteOptions InMillimetres()
{
    SvgHostWriteOptions options{};
    options.unit = 1;
    return options;
}

SvgHostWriteOptions OnSheet()
{
    SvgHostWriteOptions options{};
    options.sheet = kSheet;
    return options;
}

SvgHostWriteOptions ShowingMost()
{
    SvgHostWriteOptions options{};
    options.showsMost = true;
    return options;
}

// The scale that is found for a drawing of that size in millimetres.
double StandardScaleOf(float width, float height)
{
    HostDocument document;
    Sized(document, width, height);
    SvgHostWriteOptions options = InMillimetres();
    options.usesStandardScale = true;
    return PictureWith(document, options).scale;
}

double LongerSide(const ViewBox& box)
{
    return std::max(box.width, box.height);
}

// The width that is written for the first element of that name in the node, and the one that is expected.
void ExpectWidth(pugi::xml_node node, const char* element, double expected)
{
    const double found = node.child(element).attribute("stroke-width").as_double();
    EXPECT_GE(found, expected * (1 - 1e-6)) << element;
    EXPECT_LE(found, expected * 1.002) << element; // four digits, rounded up
}

// A hundred short lines in a square of that side.
void Crowd(const HostDocument& document, float side)
{
    for (int i = 0; i < 100; ++i) {
        const float x = side * static_cast<float>(i % 10) / 10;
        const float y = side * static_cast<float>(i / 10) / 10;
        document.Line(x, y, x + side / 10, y + side / 10);
    }
}

} // namespace

TEST(StandardScale, IsOneUpToTheLargestSheetEitherWayRound)
{
    EXPECT_EQ(StandardScaleOf(1189, 841), 1);
    EXPECT_EQ(StandardScaleOf(841, 1189), 1);
    EXPECT_EQ(StandardScaleOf(1, 1), 1);
    EXPECT_EQ(StandardScaleOf(841, 841), 1);
}

TEST(StandardScale, IsOfTheSizeWhereverTheDrawingIs)
{
    HostDocument document;
    document.Line(50'000, 70'000, 51'100, 70'800);
    document.Line(50'000, 70'800, 51'100, 70'000);
    SvgHostWriteOptions options = InMillimetres();
    options.usesStandardScale = true;
    EXPECT_EQ(PictureWith(document, options).scale, 1);
}

TEST(StandardScale, IsTwoJustBeyondTheLargestSheet)
{
    EXPECT_EQ(StandardScaleOf(1189.1F, 1), 2);
    EXPECT_EQ(StandardScaleOf(1, 1189.1F), 2);
    EXPECT_EQ(StandardScaleOf(841.1F, 841.1F), 2);
    EXPECT_EQ(StandardScaleOf(1189, 841.1F), 2);
    EXPECT_EQ(StandardScaleOf(841.1F, 1189), 2);
}

TEST(StandardScale, TakesEachStepUpToItsLimit)
{
    const double scales[] = {1, 2, 5, 10, 20, 25, 50, 100, 200, 250, 500, 1000, 2000, 2500, 5000, 10000};
    for (std::size_t i = 0; i + 1 < std::size(scales); ++i) {
        const auto most = static_cast<float>(1189 * scales[i]);
        EXPECT_EQ(StandardScaleOf(most, 1), scales[i]);
        EXPECT_EQ(StandardScaleOf(most * 1.0001F, 1), scales[i + 1]);
    }
}

TEST(StandardScale, GoesOnAsFarAsItIsNeeded)
{
    EXPECT_NEAR(StandardScaleOf(1.1e29F, 1) / 1e26, 1, 1e-9);
    EXPECT_NEAR(StandardScaleOf(2.9e29F, 1) / 2.5e26, 1, 1e-9);
}

TEST(PictureSize, IsDividedByTheScale)
{
    HostDocument document;
    Sized(document, 100, 50);
    SvgHostWriteOptions options = InMillimetres();
    const SvgHostPicture whole = PictureWith(document, options);
    EXPECT_EQ(whole.scale, 1);
    EXPECT_DOUBLE_EQ(whole.width, whole.viewBox.width);
    options.scale = 50;
    const SvgHostPicture picture = PictureWith(document, options);
    EXPECT_EQ(picture.scale, 50);
    EXPECT_DOUBLE_EQ(picture.width, whole.width / 50);
    EXPECT_DOUBLE_EQ(picture.height, whole.height / 50);
    const ParsedSvg svg(document.Write(options));
    EXPECT_NEAR(svg.Root().attribute("width").as_double(), picture.width, 1e-4);
    EXPECT_NEAR(svg.Root().attribute("height").as_double(), picture.height, 1e-4);
}

TEST(PictureSize, HasNoScaleInPixels)
{
    HostDocument document;
    Sized(document, 5000, 50);
    SvgHostWriteOptions options{};
    options.usesStandardScale = true;
    const SvgHostPicture picture = PictureWith(document, options);
    EXPECT_EQ(picture.scale, 0);
    EXPECT_EQ(picture.width, 0);
    EXPECT_EQ(picture.height, 0);
}

TEST(PictureSize, ZeroInitialisedOptionsAndNoneAreTheSame)
{
    HostDocument document;
    Sized(document, 100, 50);
    SvgHostPicture picture{};
    ASSERT_TRUE(svgHostGetPicture(document.Get(), nullptr, &picture));
    const SvgHostPicture zero = PictureWith(document, SvgHostWriteOptions{});
    SvgHostViewBox box{};
    ASSERT_TRUE(svgHostGetViewBox(document.Get(), &box));
    EXPECT_EQ(picture.viewBox.width, box.width);
    EXPECT_EQ(zero.viewBox.width, box.width);
    EXPECT_FALSE(svgHostGetPicture(nullptr, nullptr, &picture));
    EXPECT_FALSE(svgHostGetPicture(document.Get(), nullptr, nullptr));
}

TEST(PictureSize, IsThatOfTheFrame)
{
    HostDocument document;
    Sized(document, 100, 50);
    SvgHostWriteOptions options = InMillimetres();
    options.usesStandardScale = true;
    options.frame = {100, 200, 2000, 300, false};
    const SvgHostPicture picture = PictureWith(document, options);
    EXPECT_EQ(picture.scale, 2);
    EXPECT_EQ(picture.width, 1000);
    EXPECT_EQ(picture.height, 150);
    EXPECT_FALSE(picture.viewBox.isMadeUp);
    const ViewBox box = ViewBoxOf(ParsedSvg(document.Write(options)));
    EXPECT_EQ(box.x, 100);
    EXPECT_EQ(box.y, 200);
    EXPECT_EQ(box.width, 2000);
    EXPECT_EQ(box.height, 300);
}

TEST(Sheet, WidthsGrowWithThePicture)
{
    for (const float side : {0.02F, 20.0F, 420.0F, 50'000.0F}) {
        HostDocument document;
        Sized(document, side, side / 2);
        Thick(document, document.Circle(side / 8, side / 4, side / 4), L"2.110000");
        const ParsedSvg svg(document.Write(OnSheet()));
        const double longer = LongerSide(ViewBoxOf(svg));
        ExpectWidth(svg.Drawing(), "line", 0.5 * longer / kSheet);
        ExpectWidth(svg.Drawing(), "circle", 2.11 * longer / kSheet);
    }
}

TEST(Sheet, WidthsGoByTheLongerSideEitherWayRound)
{
    HostDocument document;
    Sized(document, 10, 1000);
    const ParsedSvg svg(document.Write(OnSheet()));
    ExpectWidth(svg.Drawing(), "line", 0.5 * ViewBoxOf(svg).height / kSheet);
}

TEST(Sheet, NoStrokeIsThinnerThanAPartOfTheLongerSide)
{
    HostDocument document;
    Sized(document, 1000, 500);
    Thick(document, document.Circle(9, 9, 9), L"0.050000");
    Thick(document, document.Ellipse(9, 5, 9, 9), L"0.250000");
    Thick(document, document.Polyline(L"1,1 2,2"), L"0");
    const ParsedSvg svg(document.Write(OnSheet()));
    const double longer = LongerSide(ViewBoxOf(svg));
    ExpectWidth(svg.Drawing(), "circle", longer / 1750);
    ExpectWidth(svg.Drawing(), "ellipse", 0.25 * longer / kSheet);
    EXPECT_STREQ(svg.First("polyline").attribute("stroke-width").value(), "0");
}

TEST(Sheet, AnElementWithoutAWidthInheritsOneOfTheSheet)
{
    HostDocument document;
    document.Line(0, 0, 1000, 500);
    const ParsedSvg svg(document.Write(OnSheet()));
    EXPECT_TRUE(svg.First("line").attribute("stroke-width").empty());
    ExpectWidth(svg.Root(), "g", LongerSide(ViewBoxOf(svg)) / kSheet);
}

TEST(Sheet, HoldsWideStrokes)
{
    HostDocument document;
    Thick(document, document.Line(0, 0, 1000, 0), L"100");
    const ParsedSvg svg(document.Write(OnSheet()));
    const ViewBox box = ViewBoxOf(svg);
    const double reach = svg.First("line").attribute("stroke-width").as_double() / 2;
    EXPECT_GT(reach, 100);
    ExpectTight(box, -reach, -reach, 1000 + reach, reach, 0.05 * box.width);
}

TEST(Sheet, LeavesRoomForTheWidestStrokeAndTheMargin)
{
    for (const wchar_t* given : {L"0.050000", L"0.500000", L"2.110000"}) {
        HostDocument document;
        Thick(document, document.Line(0, 0, 1000, 0), given);
        const ParsedSvg svg(document.Write(OnSheet()));
        const double width = svg.First("line").attribute("stroke-width").as_double();
        EXPECT_NEAR(ViewBoxOf(svg).width, (1000 + width) * 1.04, 0.01) << given;
    }
}

TEST(Sheet, WidthsInASymbolAreDividedByTheScaleAtWhichItIsShown)
{
    HostDocument document;
    document.Begin(L"INNER");
    Thick(document, document.Line(0, 0, 10, 0), L"0.500000");
    document.End();
    document.Begin(L"OUTER");
    const QlmNode inner = document.Use(L"INNER", 0, 0);
    document.Set(inner, L"scale-x", L"-5");
    document.Set(inner, L"scale-y", L"5");
    Thick(document, document.Circle(1, 0, 0), L"0.500000");
    document.End();
    const QlmNode outer = document.Use(L"OUTER", 0, 0);
    document.Set(outer, L"scale-x", L"4");
    document.Set(outer, L"scale-y", L"4");
    Thick(document, document.Ellipse(1, 2, 0, 0), L"0.500000");
    const ParsedSvg svg(document.Write(OnSheet()));
    const double width = 0.5 * LongerSide(ViewBoxOf(svg)) / kSheet;
    ExpectWidth(svg.Definitions().find_child_by_attribute("id", "s-INNER"), "line", width / 20);
    ExpectWidth(svg.Definitions().find_child_by_attribute("id", "s-OUTER"), "circle", width / 4);
    ExpectWidth(svg.Drawing(), "ellipse", width);
}

TEST(Sheet, WidthsInASymbolThatIsShownAtSeveralScalesGoByTheirMean)
{
    HostDocument document;
    document.Begin(L"S");
    Thick(document, document.Line(0, 0, 10, 0), L"0.500000");
    document.End();
    for (const wchar_t* scale : {L"1", L"1", L"1", L"16"}) {
        const QlmNode use = document.Use(L"S", 0, 0);
        document.Set(use, L"scale-x", scale);
        document.Set(use, L"scale-y", scale);
    }
    const ParsedSvg svg(document.Write(OnSheet()));
    const double width = 0.5 * LongerSide(ViewBoxOf(svg)) / kSheet;
    ExpectWidth(svg.Definitions().child("symbol"), "line", width / 2); // the fourth root of 16
}

TEST(Sheet, WidthsInANestedSymbolGoByHowOftenItsUserIsShown)
{
    HostDocument document;
    document.Begin(L"INNER");
    Thick(document, document.Line(0, 0, 10, 0), L"0.500000");
    document.End();
    document.Begin(L"OUTER");
    document.Use(L"INNER", 0, 0);
    document.End();
    for (int i = 0; i < 3; ++i) {
        const QlmNode use = document.Use(L"OUTER", 0, 0);
        document.Set(use, L"scale-x", L"10");
        document.Set(use, L"scale-y", L"10");
    }
    document.Use(L"INNER", 0, 0);
    const ParsedSvg svg(document.Write(OnSheet()));
    const double width = 0.5 * LongerSide(ViewBoxOf(svg)) / kSheet;
    ExpectWidth(svg.Definitions().find_child_by_attribute("id", "s-INNER"), "line",
                width / std::pow(10, 0.75));
}

TEST(Sheet, LeavesRoomForStrokesWhereTheirSymbolIsShownLargest)
{
    const auto widthWith = [](const wchar_t* usual) {
        const HostDocument document;
        document.Begin(L"S");
        document.Line(0, 0, 10, 0);
        document.End();
        for (const wchar_t* scale : {usual, usual, usual, L"16"}) {
            const QlmNode use = document.Use(L"S", 0, 0);
            document.Set(use, L"scale-x", scale);
            document.Set(use, L"scale-y", scale);
        }
        return ViewBoxOf(ParsedSvg(document.Write(OnSheet()))).width;
    };
    // The width is that of the mean, which is 2 in the first case: there the stroke is eight times as wide.
    EXPECT_GT(widthWith(L"1"), widthWith(L"16") + 2);
}

TEST(Frame, ThatHasNoSizeIsNone)
{
    HostDocument document;
    document.Line(0, 0, 30, 20);
    const double whole = ViewBoxOf(ParsedSvg(document.Write({}))).width;
    for (const SvgHostViewBox& frame : {SvgHostViewBox{0, 0, 10, 0, false},
                                        {0, 0, 0, 10, false},
                                        {0, 0, HUGE_VAL, 10, false},
                                        {0, 0, 10, HUGE_VAL, false},
                                        {HUGE_VAL, 0, 10, 10, false},
                                        {0, -HUGE_VAL, 10, 10, false}}) {
        SvgHostWriteOptions options{};
        options.frame = frame;
        EXPECT_EQ(ViewBoxOf(ParsedSvg(document.Write(options))).width, whole);
    }
    SvgHostWriteOptions options{};
    options.frame = {0, 0, 0.5F, 0.25F, false};
    EXPECT_EQ(ViewBoxOf(ParsedSvg(document.Write(options))).width, 0.5);
}

TEST(Sheet, SymbolsThatAreNotShownDoNotCount)
{
    HostDocument document;
    document.Begin(L"S");
    Thick(document, document.Line(0, 0, 10, 0), L"0.500000");
    document.End();
    document.Begin(L"UNUSED");
    document.Set(document.Use(L"S", 0, 0), L"scale-x", L"1000");
    Thick(document, document.Line(0, 0, 10, 0), L"0.500000");
    document.End();
    document.Use(L"S", 0, 0);
    const QlmNode hidden = document.Use(L"S", 0, 0);
    document.Set(hidden, L"scale-x", L"1000");
    document.Set(hidden, L"visibility", L"hidden");
    const ParsedSvg svg(document.Write(OnSheet()));
    const double width = 0.5 * LongerSide(ViewBoxOf(svg)) / kSheet;
    ExpectWidth(svg.Definitions().find_child_by_attribute("id", "s-S"), "line", width);
    ExpectWidth(svg.Definitions().find_child_by_attribute("id", "s-UNUSED"), "line", width);
}

TEST(Sheet, ChangesNothingWhenItIsNoSize)
{
    HostDocument document;
    Sized(document, 50'000, 10);
    const std::string plain = document.Write();
    for (const double sheet : {0.0, -420.0, std::nan(""), HUGE_VAL}) {
        SvgHostWriteOptions options{};
        options.sheet = sheet;
        EXPECT_EQ(document.Write(options), plain);
    }
}

TEST(Most, IsAllOfADrawingThatHangsTogether)
{
    HostDocument document;
    Crowd(document, 100);
    EXPECT_EQ(PictureWith(document, OnSheet()).filled, 1);
    const SvgHostPicture picture = PictureWith(document, ShowingMost());
    EXPECT_FALSE(picture.isCropped);
    EXPECT_EQ(document.Write(ShowingMost()), document.Write());
}

TEST(Most, IsAllOfADrawingWithDotsAtItsEdge)
{
    for (const bool isCircle : {false, true}) {
        HostDocument document;
        Crowd(document, 100);
        if (isCircle)
            document.Circle(0.3F, 99.8F, 50);
        else
            document.Line(100, 50, 101, 50);
        EXPECT_FALSE(PictureWith(document, ShowingMost()).isCropped) << isCircle;
    }
}

TEST(Most, KeepsWhatLiesNear)
{
    HostDocument document;
    Crowd(document, 100);
    document.Line(149, 50, 149, 50.5F);
    EXPECT_EQ(document.Write(ShowingMost()), document.Write());
}

TEST(Most, LeavesOutSomethingSmallFarAway)
{
    for (const bool isUpright : {false, true}) {
        HostDocument document;
        Crowd(document, 100);
        document.Line(isUpright ? 0.0F : 999.0F, isUpright ? 999.0F : 0.0F, isUpright ? 1.0F : 1000.0F,
                      isUpright ? 1000.0F : 1.0F);
        EXPECT_NEAR(PictureWith(document, SvgHostWriteOptions{}).filled, 0.1, 1e-6);
        const std::string all = document.Write();
        const std::string most = document.Write(ShowingMost());
        EXPECT_TRUE(PictureWith(document, ShowingMost()).isCropped);
        ExpectTight(ViewBoxOf(ParsedSvg(most)), 0, 0, 100, 100, 2.1);
        // What is outside stays in the file.
        EXPECT_EQ(std::count(most.begin(), most.end(), '<'), std::count(all.begin(), all.end(), '<'));
    }
}

TEST(Most, LeavesOutTheLastHundredthWhereverItLies)
{
    for (const float size : {1.0F, 10.0F}) { // twice 2 and 20 of 2000
        HostDocument document;
        Crowd(document, 100);
        document.Line(2000, 0, 2000 + size, size);
        document.Line(0, 2000, size, 2000 + size);
        EXPECT_EQ(PictureWith(document, ShowingMost()).isCropped, size == 1) << size;
    }
}

TEST(Most, LeavesOutSomethingSmallWhereverTheRestLies)
{
    for (const auto& [x, y] : {std::pair{900.0F, 0.0F}, {0.0F, 900.0F}, {-900.0F, 0.0F}, {0.0F, -900.0F}}) {
        HostDocument document;
        document.Begin(L"S");
        Crowd(document, 100);
        document.End();
        document.Use(L"S", x, y);
        document.Line(x * 2 / 3, y * 2 / 3, x * 2 / 3 + 2, y * 2 / 3 + 2);
        ExpectTight(ViewBoxOf(ParsedSvg(document.Write(ShowingMost()))), x, y, x + 100, y + 100, 2.1);
    }
}

// A point is drawn as a line as long as its stroke is wide, which is long in a picture that a stray one makes
// large.
TEST(Most, LeavesOutPointsFarAway)
{
    HostDocument document;
    Crowd(document, 100);
    for (const float y : {0.0F, 1.0F, 2.0F})
        Thick(document, document.Line(99'966.67F, y, 100'033.33F, y), L"66.670000");
    EXPECT_NEAR(PictureWith(document, SvgHostWriteOptions{}).filled, 0.001, 1e-6);
    EXPECT_TRUE(PictureWith(document, ShowingMost()).isCropped);
}

TEST(Most, LeavesOutOneOfFewElements)
{
    for (const float length : {5.0F, 20.0F}) {
        HostDocument document;
        for (const float y : {0.0F, 10.0F, 20.0F, 30.0F})
            document.Line(0, y, 5, y);
        document.Line(500, 0, 500 + length, 0);
        const bool isSmall = length * 2 < 30;
        EXPECT_NEAR(PictureWith(document, SvgHostWriteOptions{}).filled, isSmall ? 30.0 / 505 : 1, 1e-6);
    }
}

TEST(Most, KeepsASymbolOfManyElementsFarAway)
{
    for (const int elements : {5, 50}) {
        HostDocument document;
        for (const auto& [name, size] : {std::pair{L"A", 100.0F}, {L"B", 49.0F}}) {
            document.Begin(name);
            for (int i = 0; i < elements; ++i)
                document.Line(0, 0, size, size / static_cast<float>(i + 1));
            document.End();
        }
        document.Use(L"A", 0, 0);
        document.Use(L"B", 1000, 0);
        EXPECT_EQ(PictureWith(document, ShowingMost()).isCropped, elements == 5) << elements;
    }
}

TEST(Most, KeepsTwoDrawingsFarApart)
{
    HostDocument document;
    Crowd(document, 100);
    document.Line(5000, 0, 5100, 100);
    const SvgHostPicture picture = PictureWith(document, ShowingMost());
    EXPECT_EQ(picture.filled, 1);
    EXPECT_FALSE(picture.isCropped);
}

TEST(Most, LooksIntoASymbolThatHoldsAll)
{
    HostDocument document;
    document.Begin(L"S");
    Crowd(document, 10);
    document.Line(99, 99, 100, 100);
    document.End();
    const QlmNode use = document.Use(L"S", 0, 0);
    document.Set(use, L"scale-x", L"10");
    document.Set(use, L"scale-y", L"10");
    document.Set(use, L"rotate", L"90");
    EXPECT_NEAR(PictureWith(document, SvgHostWriteOptions{}).filled, 0.1, 1e-6);
    ExpectTight(ViewBoxOf(ParsedSvg(document.Write(ShowingMost()))), -100, 0, 0, 100, 2.1);
}

// Of 17 x 1.1, the float is more than the double.
TEST(Most, IsNoMoreThanAllWhateverTheRounding)
{
    HostDocument document;
    document.Begin(L"S");
    for (int i = 0; i < 100; ++i)
        document.Line(0, 0, 17, 0);
    document.End();
    document.Set(document.Use(L"S", 0, 0), L"scale-x", L"1.1");
    document.Line(0, 15, 0.01F, 15);
    EXPECT_TRUE(PictureWith(document, ShowingMost()).isCropped);
    EXPECT_EQ(PictureWith(document, SvgHostWriteOptions{}).filled, 1);
}

TEST(Most, IsAllWhenNothingHasAnExtent)
{
    HostDocument document;
    EXPECT_EQ(PictureWith(document, ShowingMost()).filled, 1);
    Thick(document, document.Line(5, 5, 5, 5), L"1");
    const SvgHostPicture point = PictureWith(document, ShowingMost());
    EXPECT_EQ(point.filled, 1);
    EXPECT_FALSE(point.isCropped);
}

TEST(Most, DecidesWidthsAndScale)
{
    HostDocument document;
    Crowd(document, 100);
    Thick(document, document.Line(99'999, 0, 100'000, 0), L"0.500000");
    SvgHostWriteOptions options = OnSheet();
    options.unit = 1;
    options.usesStandardScale = true;
    EXPECT_EQ(PictureWith(document, options).scale, 100);
    options.showsMost = true;
    const SvgHostPicture picture = PictureWith(document, options);
    EXPECT_EQ(picture.scale, 1);
    const ParsedSvg svg(document.Write(options));
    const pugi::xml_node last = svg.Drawing().last_child();
    EXPECT_NEAR(last.attribute("stroke-width").as_double(), 0.5 * picture.viewBox.width / kSheet, 1e-4);
}
