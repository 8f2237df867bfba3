// Numbers that no viewer can draw never reach the file.
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

using namespace svghost_tests;

namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

bool HasOddNumber(const std::string& text)
{
    // "nan" and "inf" are part of no word that the host writes.
    return text.find("nan") != std::string::npos || text.find("inf") != std::string::npos;
}

// The number of elements left out of a drawing that has this one, and a good line next to it.
template <class Create>
std::size_t LeftOut(Create create)
{
    const HostDocument document;
    document.Line(0, 0, 10, 10);
    create(document);
    const std::string text = document.Write();
    EXPECT_FALSE(HasOddNumber(text)) << text;
    const ParsedSvg svg(text);
    ExpectTight(ViewBoxOf(svg), 0, 0, 10, 10, 1);
    EXPECT_EQ(document.Statistics().elements, 2u);
    const auto drawn = svg.Drawing().children();
    const std::size_t missing = 2 - static_cast<std::size_t>(std::distance(drawn.begin(), drawn.end()));
    EXPECT_EQ(document.Statistics().undrawableElements, missing);
    return missing;
}

} // namespace

TEST(Numbers, GeometryThatIsNotFiniteIsLeftOut)
{
    for (const float odd : {kNan, kInfinity, -kInfinity}) {
        EXPECT_EQ(LeftOut([&](const HostDocument& d) { d.Line(0, odd, 1, 1); }), 1u);
        EXPECT_EQ(LeftOut([&](const HostDocument& d) { d.Line(0, 0, 1, odd); }), 1u);
        EXPECT_EQ(LeftOut([&](const HostDocument& d) { d.Circle(odd, 0, 0); }), 1u);
        EXPECT_EQ(LeftOut([&](const HostDocument& d) { d.Ellipse(1, odd, 0, 0); }), 1u);
        EXPECT_EQ(LeftOut([&](const HostDocument& d) { d.Ellipse(1, 1, odd, 0); }), 1u);
        EXPECT_EQ(LeftOut([&](const HostDocument& d) { d.Text(odd, 0, L"a"); }), 1u);
        EXPECT_EQ(LeftOut([&](const HostDocument& d) { d.Use(L"A", 0, odd); }), 1u);
    }
}

TEST(Numbers, PathDataThatIsNotFiniteIsLeftOut)
{
    for (const wchar_t* data :
         {L"M nan,0 A 1,1, 0 0,0 1,1", L"M 0,0 A inf,1, 0 0,0 1,1", L"M 0,0 A 1,1, 0 0,0 1,-nan(ind)",
          L"M 1.#INF00,0 A 1,1, 0 0,0 1,1", L"M 0,0 A 1,1, 0 0,0", L"M 0,0 A 1,1, 0 0,2 1,1", L"M 0,0 X 1",
          L"0,0 1,1", L"M 1e39,0 L 0,0"})
        EXPECT_EQ(LeftOut([&](const HostDocument& d) { d.Path(data); }), 1u);
}

TEST(Numbers, PointsThatAreNotFiniteAreLeftOut)
{
    const std::wstring huge = L"1" + std::wstring(308, L'0') + L".000000,0 1,1";
    for (const wchar_t* points : {L"0,0 inf,0", L"nan,nan", L"0,0 1", L"0,0 1,", L"a,b", huge.c_str()}) {
        EXPECT_EQ(LeftOut([&](const HostDocument& d) { d.Polyline(points); }), 1u);
        EXPECT_EQ(LeftOut([&](const HostDocument& d) { d.Polygon(points); }), 1u);
    }
}

TEST(Numbers, TransformThatIsNotFiniteLeavesTheElementOut)
{
    for (const wchar_t* odd : {L"inf", L"-nan", L"nan", L"1.#QNAN", L""}) {
        EXPECT_EQ(LeftOut([&](const HostDocument& d) { d.Set(d.Ellipse(1, 2, 3, 4), L"rotate", odd); }), 1u);
        EXPECT_EQ(LeftOut([&](const HostDocument& d) { d.Set(d.Ellipse(1, 2, 3, 4), L"center-x", odd); }),
                  1u);
        for (const wchar_t* name : {L"scale-x", L"scale-y"})
            EXPECT_EQ(LeftOut([&](const HostDocument& d) { d.Set(d.Use(L"A", 0, 0), name, odd); }), 1u);
    }
}

TEST(Numbers, OtherAttributesThatAreNotFiniteAreLeftOutAlone)
{
    for (const wchar_t* odd : {L"inf", L"nan"}) {
        EXPECT_EQ(LeftOut([&](const HostDocument& d) { d.Set(d.Line(0, 0, 1, 1), L"stroke-width", odd); }),
                  0u);
        EXPECT_EQ(
            LeftOut([&](const HostDocument& d) { d.Set(d.Line(0, 0, 1, 1), L"stroke-dasharray", odd); }), 0u);
    }
}

TEST(Numbers, FontSizeThatIsNotFiniteIsLeftOutAlone)
{
    const HostDocument document;
    document.Set(document.Text(0, 0, L"a"), L"font-size", L"inf");
    const ParsedSvg svg(document);
    EXPECT_TRUE(svg.First("text"));
    EXPECT_FALSE(svg.First("text").attribute("font-size"));
}

TEST(Numbers, FarAwayElementsKeepTheViewBoxFinite)
{
    const HostDocument document;
    document.Line(-3e38f, -3e38f, 3e38f, 3e38f);
    document.Begin(L"A");
    document.Line(0, 0, 1e20f, 1e20f);
    document.End();
    const QlmNode use = document.Use(L"A", 0, 0);
    document.Set(use, L"scale-x", L"100000000000000000000000000000.000000");
    const ParsedSvg svg(document);
    const ViewBox box = ViewBoxOf(svg);
    for (const double number : {box.x, box.y, box.width, box.height})
        EXPECT_TRUE(std::isfinite(static_cast<float>(number)));
    EXPECT_GT(box.width, 0);
    EXPECT_TRUE(svg.First("line"));
}

TEST(Numbers, ManyDecimalsAndExponentsAreRead)
{
    const HostDocument document;
    document.Polyline(L"0.1234567890123456789012345,1e2 +5,-.5 1.5e-3,10 1e-400,0");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("polyline").attribute("points").value(),
                 "0.1234567890123456789012345,1e2 5,-.5 1.5e-3,10 1e-400,0");
    ExpectTight(ViewBoxOf(svg), 0, -0.5, 5, 100, 3);
}
