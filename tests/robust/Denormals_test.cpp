// A host that plays sound or draws in real time may have told the processor to take the smallest numbers for
// zero: drawings are drawn as ever.
#include "support/Import.h"
#include "support/Sweep.h"

#include <gtest/gtest.h>

#if defined(__SSE2__) || defined(_M_X64)

#include <emmintrin.h>

#include <limits>

namespace {

constexpr unsigned kFlushToZero = 0x8000, kDenormalsAreZero = 0x0040;

// For the length of a test.
class SmallestNumbersAreZero {
public:
    SmallestNumbersAreZero() : m_before(_mm_getcsr())
    {
        _mm_setcsr(m_before | kFlushToZero | kDenormalsAreZero);
    }
    ~SmallestNumbersAreZero() { _mm_setcsr(m_before); }
    SmallestNumbersAreZero(const SmallestNumbersAreZero&) = delete;
    SmallestNumbersAreZero& operator=(const SmallestNumbersAreZero&) = delete;

private:
    const unsigned m_before;
};

} // namespace

TEST(Denormals, TakenForZeroChangeNoDrawing)
{
    for (const SWEPT_DRAWING& drawing : SweptDrawings()) {
        const std::string expected = TraceOf(drawing.bytes);
        const SmallestNumbersAreZero mode;
        EXPECT_EQ(TraceOf(drawing.bytes), expected) << drawing.name;
    }
}

// Numbers so small are drawn as zero, or as what they are; all else stays.
TEST(Denormals, TakenForZeroChangeThemselvesAlone)
{
    for (const char* number :
         {"4.9406564584124654e-324", "-1e-310", "2.2250738585072011e-308", "1e-45", "1e-40"}) {
        const std::string drawing = EntitiesSection(
            {"0",    "LINE", "10",   number, "11",      "7",    "21", number, "0",    "CIRCLE",     "10",
             number, "40",   "2.25", "0",    "ARC",     "40",   "1",  "50",   number, "51",         "45",
             "0",    "TEXT", "40",   number, "50",      number, "1",  "x",    "0",    "LWPOLYLINE", "10",
             number, "20",   "3",    "0",    "ELLIPSE", "11",   "1",  "40",   number, "42",         "1"});
        const volatile double smallest = std::numeric_limits<double>::denorm_min();
        const std::string expected = TraceOf(drawing);
        const SmallestNumbersAreZero mode;
        ASSERT_EQ(smallest + smallest, 0.0) << "the mode is set";
        const std::string trace = TraceOf(drawing);
        EXPECT_EQ(std::count(trace.begin(), trace.end(), '\n'),
                  std::count(expected.begin(), expected.end(), '\n'));
        for (const char* part : {", 7, ", ", 2.25, ", "-3.000000", "\"M "})
            EXPECT_NE(trace.find(part), std::string::npos) << number << part;
    }
}

#endif
