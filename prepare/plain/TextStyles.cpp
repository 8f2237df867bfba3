#include "prepare/plain/TextStyles.h"

#include "base/Letters.h"
#include "base/Pi.h"

#include <algorithm>
#include <cmath>

namespace prepare {

double TextHeightOf(double height, const TextStyle* style, const Header& header)
{
    if (!(height <= 0)) // a NaN is kept, so that the text is reported
        return height;
    if (style != nullptr && style->height > 0)
        return style->height;
    constexpr double kUsualHeight = 2.5;
    const double usual = header.Real("$TEXTSIZE", kUsualHeight);
    return usual > 0 ? usual : kUsualHeight;
}

double WidthFactorOf(double factor)
{
    return factor > 0 && std::isfinite(factor) ? factor : 1;
}

bool IsTrueType(std::string_view font)
{
    constexpr std::size_t kEnding = 4;
    if (font.size() <= kEnding)
        return false;
    const std::string ending = InSmallLetters(font.substr(font.size() - kEnding));
    return ending == ".ttf" || ending == ".ttc" || ending == ".otf";
}

double SlantOf(double degrees)
{
    constexpr double kSteepest = 85;
    if (!std::isfinite(degrees))
        return 0;
    const double angle = std::remainder(degrees, 360);
    return std::tan(std::clamp(angle, -kSteepest, kSteepest) * kRadiansPerDegree);
}

} // namespace prepare
