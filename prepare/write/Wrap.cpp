#include "prepare/write/Wrap.h"

#include "base/Decimals.h"
#include "base/Numbers.h"
#include "prepare/write/ModuleRemedies.h"
#include "prepare/write/PairWriter.h"
#include "prepare/write/StrokeWidth.h"

#include <algorithm>
#include <cmath>

namespace prepare {

namespace {

// A weight (370) has hundredths, and a font size two decimals: below these, they are too coarse.
constexpr double kThinnestUnwrapped = 0.05;
constexpr double kSmallestUnwrappedFont = 1;
constexpr double kThickestStroke = 1e7; // hundredths of a larger one are no 32-bit integer
// Graphics libraries that keep places in 24 bits and 8 more for the fraction lose texts beyond this.
constexpr double kFarthestText = 8'388'607;
// How large a wrapped drawing is: strokes then are some units wide, and a 32-bit float is far finer.
constexpr double kWrappedSize = 20'000;

bool IsWrapNeeded(const WriteSettings& settings, double stroke, double farthest)
{
    return stroke < kThinnestUnwrapped || stroke > kThickestStroke || farthest > kFarthestText ||
           FloatStep(farthest) > stroke / 10 ||
           (settings.smallestText > 0 &&
            settings.smallestText * kFontSizeOfCapitals < kSmallestUnwrappedFont);
}

double Farthest(const Box& box)
{
    return box.IsEmpty() ? 0
                         : std::max({std::fabs(box.min.x), std::fabs(box.min.y), std::fabs(box.max.x),
                                     std::fabs(box.max.y)});
}

// Whether a 32-bit float holds the value, and the shortest text that gives this float back has exactly that
// value: hosts keep floats, and may write them so.
bool IsExact(double value)
{
    const volatile auto narrow = static_cast<float>(value); // g++ 12 drops both conversions of a pair
    char text[kLongestShortest];
    return static_cast<double>(narrow) == value && ParseReal({text, FormatShortest(narrow, text)}) == value;
}

// An exact value near that one: about as near as floats are there.
double ExactNear(double value)
{
    constexpr double kTooFar = 1e37;
    if (!(std::fabs(value) < kTooFar))
        return 0;
    double step = FloatStep(value), exact = 0;
    do {
        exact = std::round(value / step) * step + 0.0; // no -0
        step *= 2;
    } while (!IsExact(exact));
    return exact;
}

Point2 Centre(const Box& box)
{
    if (box.IsEmpty())
        return {};
    return {ExactNear(box.min.x / 2 + box.max.x / 2), ExactNear(box.min.y / 2 + box.max.y / 2)};
}

} // namespace

Wrap ChooseWrap(const WriteSettings& settings, const Box& reach)
{
    const Box& all = settings.extents.IsEmpty() ? reach : settings.extents;
    Wrap wrap;
    wrap.stroke = StrokeWidth(settings, settings.thinnestWeight, 0);
    if (!(wrap.stroke > 0))
        wrap.stroke = kThinnestUnwrapped;
    if (!settings.mayWrap || settings.extents.IsEmpty() ||
        !IsWrapNeeded(settings, wrap.stroke, Farthest(all)))
        return wrap;
    const double size = all.LongerSide() > 0 ? all.LongerSide() : wrap.stroke * 4000;
    wrap.isNeeded = true;
    wrap.origin = Centre(all);
    wrap.power = static_cast<int>(std::lround(std::log10(size / kWrappedSize)));
    wrap.factor = PowerOfTen(-wrap.power);
    wrap.stroke *= wrap.factor;
    return wrap;
}

} // namespace prepare
