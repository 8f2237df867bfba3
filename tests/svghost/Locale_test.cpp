// A host may have set any locale: a picture's numbers are written, and the texts of its operations read, with
// points all the same.
#include "support/RuntimeLocale.h"
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

using namespace svghost_tests;

namespace {

// A picture of every element that has numbers, and of every attribute that is read as one.
std::string Picture()
{
    const HostDocument document;
    document.Begin(L"Part");
    document.Circle(2.5f, 1234567.75f, 0.125f);
    document.End();
    document.Line(0.5f, -1.25f, 10.75f, 3.5f);
    document.Set(document.Ellipse(1.5f, 2.5f, 3.5f, 4.5f), L"rotate", L"12.500000");
    document.Path(L"M 0.5,0.25 A 1.5,1.5, 0 0,0 1.25,1.75");
    document.Polyline(L"0.5,1.5 2.25,3.75");
    document.Polygon(L"0.5,1.5 2.25,3.75 4.5,0.125");
    document.Set(document.Text(0.5f, 1.5f, L"1,5 I i"), L"font-size", L"2.500000");
    document.Set(document.Line(0, 0, 1, 1), L"stroke-width", L"0.250000");
    document.Set(document.Line(0, 0, 1, 1), L"stroke-dasharray", L"1.500000,0.500000");
    const QlmNode use = document.Use(L"Part", 0.5f, 1.5f);
    document.Set(use, L"scale-x", L"1.500000");
    document.Set(use, L"scale-y", L"0.750000");
    return document.Write();
}

} // namespace

TEST(Locale, ChangesNothingOfAPicture)
{
    const std::string expected = Picture();
    EXPECT_NE(expected.find("10.75"), std::string::npos) << expected;
    for (const auto& names : {kGerman, kTurkish}) {
        const RuntimeLocale locale(names);
        if (!locale.IsSet())
            GTEST_SKIP() << "The system has no locale " << *names.begin();
        EXPECT_STREQ(std::localeconv()->decimal_point, ",");
        EXPECT_EQ(Picture(), expected) << *names.begin();
    }
}
