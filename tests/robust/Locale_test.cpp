// A host may have set any locale: numbers are still read and written with points.
#include "entry/dxfFileOpen.h"
#include "support/Import.h"
#include "support/RuntimeLocale.h"
#include "support/Sweep.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <locale>

namespace {

std::string TraceOfDrawings()
{
    std::string traces;
    for (const SweptDrawing& drawing : SweptDrawings())
        traces += TraceOf(drawing.bytes);
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

namespace {

// What is drawn of a file whose name is not plain ASCII.
std::string TraceOfFile(const std::string& drawing)
{
    const TempFile unnamed(drawing);
    std::filesystem::path path = unnamed.Path();
    path += std::filesystem::path(u8"-Gr\u00F6\u00DFe.dxf");
    std::filesystem::copy_file(unnamed.Path(), path);
    RecordingHost::OfThread().Reset();
    EXPECT_TRUE(
        dxfFileOpen((unnamed.WidePath() + L"-Gr\u00F6\u00DFe.dxf").c_str(), RecordingHost::Context()));
    std::filesystem::remove(path);
    return RecordingHost::OfThread().Trace();
}

} // namespace

TEST(Locale, OfTheRuntimeLibraryWithADecimalCommaChangesNothing)
{
    const std::string expected = TraceOfDrawings();
    const RuntimeLocale locale(kGerman);
    if (!locale.IsSet())
        GTEST_SKIP() << "The system has no German locale.";
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    EXPECT_EQ(TraceOfDrawings(), expected);
}

// Where an I is no capital i: names such as LINE and ByLayer are what they are.
TEST(Locale, OfTheRuntimeLibraryThatIsTurkishChangesNothing)
{
    const std::string expected = TraceOfDrawings();
    const RuntimeLocale locale(kTurkish);
    if (!locale.IsSet())
        GTEST_SKIP() << "The system has no Turkish locale.";
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    EXPECT_EQ(TraceOfDrawings(), expected);
}

TEST(Locale, OfTheRuntimeLibraryChangesNothingOfFilesWhoseNamesHaveUmlauts)
{
    const std::string drawing = EntitiesSection({{0, "LINE"}, {10, 2.25}, {11, 10.125}, {6, "BYLAYER"}});
    const std::string expected = TraceOf(drawing);
    EXPECT_EQ(TraceOfFile(drawing), expected);
    EXPECT_NE(expected.find("10.125"), std::string::npos) << expected;
    for (const auto& names : {kGerman, kTurkish}) {
        const RuntimeLocale locale(names);
        if (!locale.IsSet())
            GTEST_SKIP() << "The system has no locale " << *names.begin();
        EXPECT_EQ(TraceOfFile(drawing), expected) << *names.begin();
    }
}
