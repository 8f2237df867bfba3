#include "prepare/write/PairWriter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>

namespace prepare {
namespace {

std::string Written(const std::function<void(PairWriter&)>& put)
{
    std::string text;
    const ByteFunction write = [&](std::string_view bytes) {
        text += bytes;
        return true;
    };
    PairWriter pairs(write);
    put(pairs);
    EXPECT_TRUE(pairs.Finish());
    return text;
}

std::string Real(double value, int digits = PairWriter::kDigits)
{
    std::string text;
    AppendReal(text, value, digits);
    return text;
}

TEST(PairWriter, PassesLongTextsOnAsTheyAre)
{
    std::string expected;
    const std::string written = Written([&](PairWriter& pairs) {
        for (std::size_t size = 1; size < 200'000; size *= 3) {
            pairs.Text(1071, std::string(size, 'x'));
            pairs.Integer(0, -7);
            expected += "1071\n" + std::string(size, 'x') + "\n0\n-7\n";
        }
    });
    EXPECT_EQ(written, expected);
}

TEST(PairWriter, RealNumbersLoseWhatArithmeticBlurs)
{
    EXPECT_EQ(Real(0.1 + 0.2), "0.3");
    EXPECT_EQ(Real(-0.0), "0");
    EXPECT_EQ(Real(5'600'000.123456), "5600000.123456");
    EXPECT_EQ(Real(std::acos(-1.0), 9), "3.14159265");
    EXPECT_EQ(Real(1e300), "1e+300");
}

TEST(PairWriter, LinesEndWithALineFeedAndHandlesAreUpperCase)
{
    const std::string text = Written([](PairWriter& pairs) {
        pairs.Text(0, "LINE");
        pairs.Handle(5, 0x1ABCDEF);
        pairs.Integer(370, -3);
        pairs.Real(10, 2.5);
        pairs.Fixed(20, 2.25, 1);
        pairs.Raw("62\n7\n");
    });
    EXPECT_EQ(text, "0\nLINE\n5\n1ABCDEF\n370\n-3\n10\n2.5\n20\n2.2\n62\n7\n");
}

TEST(PairWriter, TheLongerFormHasCodesInThreeColumnsAndRealsWithAPoint)
{
    std::string text;
    const ByteFunction write = [&](std::string_view bytes) {
        text += bytes;
        return true;
    };
    PairWriter pairs(write, PairForm::Columns);
    pairs.Text(0, "LINE");
    pairs.Integer(62, 7);
    pairs.Integer(370, -3);
    pairs.Fixed(10, 2.25, 1);
    pairs.Fixed(20, 12, 4);
    pairs.Fixed(30, -120, 0);
    pairs.Fixed(40, 0, 15);
    pairs.Text(1071, "");
    pairs.Raw(PairText(6, "DASHED", PairForm::Columns));
    EXPECT_TRUE(pairs.Finish());
    EXPECT_EQ(text, "  0\nLINE\n 62\n7\n370\n-3\n 10\n2.2\n 20\n12.0\n 30\n-120.0\n 40\n0.0\n1071\n\n"
                    "  6\nDASHED\n");
}

TEST(PairWriter, AFunctionThatStopsIsNotCalledAgain)
{
    int calls = 0;
    const ByteFunction write = [&](std::string_view) {
        ++calls;
        return false;
    };
    PairWriter pairs(write);
    for (int i = 0; i < 100'000; ++i)
        pairs.Text(1, "a text that fills the buffer");
    EXPECT_FALSE(pairs.Finish());
    EXPECT_EQ(calls, 1);
}

} // namespace
} // namespace prepare
