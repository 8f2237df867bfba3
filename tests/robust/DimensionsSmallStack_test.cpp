// Dimensions on a thread with a stack of 64 KiB: parts and nested texts are read and drawn in loops, so no
// file can use the stack up. (A host may call from any thread it likes.)
#include "support/Dimensions.h"
#include "support/SmallStack.h"

#include <gtest/gtest.h>

namespace {

// The number of calls that a drawing makes on a thread with the small stack.
std::size_t CallsOnSmallStack(const std::string& parts)
{
    const std::string drawing = DimensionDrawing(parts);
    std::size_t calls = 0;
    const auto import = [&] {
        TraceOf(drawing, [](CDxfReadToQuillmar&) { RecordingHost::OfThread().countOnly = true; });
        calls = RecordingHost::OfThread().callCount;
    };
    EXPECT_TRUE(RunOnSmallStack(import, 64 * 1024));
    return calls;
}

std::string Repeated(std::string_view text, std::size_t count)
{
    std::string all;
    while (count-- != 0)
        all += text;
    return all;
}

} // namespace

TEST(DimensionsOnASmallStack, MillionParts)
{
    EXPECT_EQ(CallsOnSmallStack(Repeated(Part("AcDbEntity"), 1'000'000) + Part("AcDbDimension") +
                                Part("AcDbRadialDimension")),
              13u);
}

TEST(DimensionsOnASmallStack, MillionPartsOfAllKindsAndAFaultAfterThem)
{
    std::string all;
    for (const std::string_view marker : kPartMarkers)
        if (marker != "AcDbDimension")
            all += Part(marker);
    // Two messages: no integer in place of a code, and the line after it as an unknown type.
    EXPECT_EQ(CallsOnSmallStack(Repeated(all, 125'000) + "x\ny\n"), 2u);
}

TEST(DimensionsOnASmallStack, FiveHundredNestedTexts)
{
    EXPECT_EQ(CallsOnSmallStack(Part("AcDbDimension", {{1, Repeated("A{", 500) + "}"}}) +
                                Part("AcDbRadialDimension")),
              8u + 501 * 5);
}

TEST(DimensionsOnASmallStack, LongestMessageAndLongestText)
{
    const std::string longest(1023, '<');
    EXPECT_EQ(CallsOnSmallStack(Part("AcDbDimension", {{1, longest}}) + Part("AcDbRadialDimension")), 13u);
    EXPECT_GE(CallsOnSmallStack(Dxf({{7, longest}}) + Part(longest)), 2u);
}
