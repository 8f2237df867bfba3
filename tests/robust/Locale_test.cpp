// A host may have set any locale: numbers are read and written with points all the same.
#include "support/Import.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <locale>

namespace {

std::string TraceOfDrawings()
{
    std::string traces;
    for (const char* name :
         {"blocks", "dimensions", "geometry", "polylines", "styles", "texts", "bad_entities"})
        traces += TraceOf(
            BytesOf(std::filesystem::path(PLEXORN_TEST_DATA) / "trace" / (std::string(name) + ".dxf")));
    return traces;
}

// 1.234,5
class GermanNumbers : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

class WideGermanNumbers : public std::numpunct<wchar_t> {
    wchar_t do_decimal_point() const override { return L','; }
    wchar_t do_thousands_sep() const override { return L'.'; }
    std::string do_grouping() const override { return "\3"; }
};

} // namespace

TEST(Locale, OfTheStreamsWithADecimalCommaChangesNothing)
{
    const std::string expected = TraceOfDrawings();
    const std::locale before = std::locale::global(
        std::locale(std::locale(std::locale(), new GermanNumbers), new WideGermanNumbers));
    EXPECT_EQ(std::use_facet<std::numpunct<char>>(std::locale()).decimal_point(), ',');
    const std::string trace = TraceOfDrawings();
    std::locale::global(before);
    EXPECT_EQ(trace, expected);
    EXPECT_NE(expected.find("0.250000"), std::string::npos);
}

TEST(Locale, OfTheRuntimeLibraryWithADecimalCommaChangesNothing)
{
    const std::string expected = TraceOfDrawings();
    const std::string before = std::setlocale(LC_ALL, nullptr);
    bool found = false;
    for (const char* name :
         {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "German_Germany.1252", "German"})
        found =
            found || (std::setlocale(LC_ALL, name) != nullptr && *std::localeconv()->decimal_point == ',');
    const std::string trace = TraceOfDrawings();
    std::setlocale(LC_ALL, before.c_str());
    EXPECT_EQ(trace, expected);
    if (!found)
        GTEST_SKIP() << "The system has no locale with a decimal comma.";
}
