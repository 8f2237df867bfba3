// A host may have set any locale: numbers are read and written with points all the same.
#include "support/Import.h"
#include "support/Sweep.h"

#include <gtest/gtest.h>

#include <clocale>
#include <initializer_list>
#include <locale>

namespace {

std::string TraceOfDrawings()
{
    std::string traces;
    for (const SWEPT_DRAWING& drawing : SweptDrawings())
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

// The runtime library's locale for the length of a test.
class RuntimeLocale {
public:
    // Takes the first of the names that there is.
    explicit RuntimeLocale(std::initializer_list<const char*> names)
        : m_before(std::setlocale(LC_ALL, nullptr))
    {
        for (const char* name : names)
            if (!m_isSet)
                m_isSet = std::setlocale(LC_ALL, name) != nullptr;
    }
    ~RuntimeLocale() { std::setlocale(LC_ALL, m_before.c_str()); }
    RuntimeLocale(const RuntimeLocale&) = delete;
    RuntimeLocale& operator=(const RuntimeLocale&) = delete;

    bool IsSet() const { return m_isSet; }

private:
    const std::string m_before;
    bool m_isSet = false;
};

} // namespace

TEST(Locale, OfTheRuntimeLibraryWithADecimalCommaChangesNothing)
{
    const std::string expected = TraceOfDrawings();
    const RuntimeLocale locale({"de_DE.UTF-8", "de_DE", "German_Germany.1252", "de-DE"});
    if (!locale.IsSet())
        GTEST_SKIP() << "The system has no German locale.";
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    EXPECT_EQ(TraceOfDrawings(), expected);
}

// Where an I is no capital i: names such as LINE and ByLayer are what they are.
TEST(Locale, OfTheRuntimeLibraryThatIsTurkishChangesNothing)
{
    const std::string expected = TraceOfDrawings();
    const RuntimeLocale locale({"tr_TR.UTF-8", "tr_TR", "Turkish_Turkey.1254", "tr-TR"});
    if (!locale.IsSet())
        GTEST_SKIP() << "The system has no Turkish locale.";
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    EXPECT_EQ(TraceOfDrawings(), expected);
}
