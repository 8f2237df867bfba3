// What is written for the module, as the module reads it: without a message, and the calls are what is meant.
#include "support/Import.h"
#include "support/WrittenDrawing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace prepare {
namespace {

constexpr double kPi = std::numbers::pi;

class ModuleProfile : public testing::Test {
protected:
    WrittenDrawing written;

    void Line(const Style& style, Point2 start, Point2 end) { written.Model().Line(style, start, end); }
    void Text(std::string text, Point2 point, Point2 along, Point2 up, Anchor anchor = Anchor::Start)
    {
        written.Model().Text(StyleOf(1), {std::move(text), point, along, up, anchor, kNoName});
    }

    void ExpectCalls(const std::string& calls)
    {
        const std::string text = written.Text();
        EXPECT_EQ(TraceOf(text), calls) << text;
    }
};

TEST_F(ModuleProfile, LineHasItsStyle)
{
    Style style = StyleOf(3, 50);
    style.lineType = written.Dashed({5, -2.5});
    style.lineTypeScale = 2;
    Line(style, {0, 0}, {10, 5.5});
    ExpectCalls(R"calls(qlmCreateLine(ctx, "", 0, -0, 10, -5.5, 0, 0) = n1
qlmSetAttributeByNode(ctx, n1, "stroke-width", "0.500000")
qlmSetAttributeByNode(ctx, n1, "stroke", "RGB(0,255,0)")
qlmSetAttributeByNode(ctx, n1, "stroke-dasharray", "10.000000,5.000000")
)calls");
}

} // namespace
} // namespace prepare
