// A host that plays sound or draws in real time may have set the processor to treat the smallest numbers as
// zero: drawings are drawn as ever.
#include "support/Import.h"
#include "support/Sweep.h"

#include <gtest/gtest.h>

#if defined(__SSE2__) || defined(_M_X64)

#include <emmintrin.h>

#include <limits>
#include <sstream>

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

// Several kinds of entities with a number in their coordinates and sizes.
std::string DrawingWith(std::string_view number)
{
    return EntitiesSection({{0, "LINE"},       {10, number}, {11, 7},      {21, number},   {0, "CIRCLE"},
                            {10, number},      {40, 2.25},   {0, "ARC"},   {40, 1},        {50, number},
                            {51, 45},          {0, "TEXT"},  {40, number}, {50, number},   {1, "x"},
                            {0, "LWPOLYLINE"}, {10, number}, {20, 3},      {0, "ELLIPSE"}, {11, 1},
                            {40, number},      {42, 1}});
}

std::vector<std::string> LinesOf(const std::string& trace)
{
    std::vector<std::string> lines;
    std::istringstream stream(trace);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

} // namespace

TEST(Denormals, TakenForZeroChangeNoDrawing)
{
    for (const SweptDrawing& drawing : SweptDrawings()) {
        const std::string expected = TraceOf(drawing.bytes);
        const SmallestNumbersAreZero mode;
        EXPECT_EQ(TraceOf(drawing.bytes), expected) << drawing.name;
    }
}

// Each line is that of the number itself or that of zero.
TEST(Denormals, TakenForZeroChangeThemselvesAlone)
{
    const volatile double smallest = std::numeric_limits<double>::denorm_min();
    for (const std::string_view number :
         {"4.9406564584124654e-324", "-1e-310", "2.2250738585072011e-308", "1e-45", "1e-40"}) {
        const std::vector<std::string> expected = LinesOf(TraceOf(DrawingWith(number)));
        const std::vector<std::string> ofZero = LinesOf(TraceOf(DrawingWith("0")));
        std::vector<std::string> lines;
        {
            const SmallestNumbersAreZero mode;
            ASSERT_EQ(smallest + smallest, 0.0) << "the mode is set";
            lines = LinesOf(TraceOf(DrawingWith(number)));
        }
        ASSERT_EQ(expected.size(), ofZero.size()) << number;
        ASSERT_EQ(lines.size(), expected.size()) << number;
        for (std::size_t i = 0; i < lines.size(); ++i)
            EXPECT_TRUE(lines[i] == expected[i] || lines[i] == ofZero[i])
                << number << ": " << lines[i] << "\nis not\n"
                << expected[i] << "\nnor\n"
                << ofZero[i];
    }
}

#endif
