#include "prepare/write/ModuleRemedies.h"

#include "base/Pi.h"
#include "base/Utf8.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace prepare {

namespace {

double AngleOfParameter(double ratio, double parameter)
{
    return std::atan2(ratio * std::sin(parameter), std::cos(parameter));
}

// How many bytes at the start of a text are characters of ASCII that can be seen, or blanks.
std::size_t CountPlain(std::string_view text)
{
    const auto end =
        std::find_if(text.begin(), text.end(), [](char byte) { return byte < ' ' || byte > '~'; });
    return static_cast<std::size_t>(end - text.begin());
}

} // namespace

CodeAndValue ColourForModule(const Colour& colour)
{
    if (!colour.isTrue)
        return {62, colour.index};
    const std::uint32_t red = colour.rgb >> 16 & 255, green = colour.rgb >> 8 & 255, blue = colour.rgb & 255;
    if (red == 0 && green == 0 && blue == 0)
        return {62, 7};
    return {420, static_cast<std::int32_t>(blue << 16 | green << 8 | red)};
}

std::int32_t WeightForModule(double width)
{
    const double hundredths = std::nearbyint(width * 100);
    if (!(hundredths >= 1))
        return 1;
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    return hundredths < kMost ? static_cast<std::int32_t>(hundredths) : kMost;
}

DrawnEllipse HowModuleDraws(double ratio, double start, double end)
{
    constexpr double kNearlyWhole = 0.0011; // the module takes less than 0.001 for a whole ellipse
    const double first = AngleOfParameter(ratio, start);
    const double last = AngleOfParameter(ratio, end);
    const double between = std::fabs(last - first);
    if (std::min(between, kTurn - between) < kNearlyWhole)
        return DrawnEllipse::Whole;
    const bool isLarge = first > last && kTurn - first + last >= kPi;
    const bool shouldBe = end - start > kPi;
    return isLarge == shouldBe ? DrawnEllipse::Right : DrawnEllipse::WrongSide;
}

TextPlace TextPlaceForModule(Point2 along, Point2 up)
{
    constexpr double kNothing = 1e-4; // a turn or a stretch that nobody sees
    const double area = Cross(along, up);
    const double length = Length(along);
    const double height = std::fabs(area) / length;
    TextPlace place;
    place.size = kFontSizeOfCapitals * height;
    place.rotation = std::atan2(along.y, along.x);
    place.widthFactor = length / height;
    place.scaleX = place.widthFactor;
    place.scaleY = area < 0 ? -1 : 1;
    if (std::fabs(Dot(along, up)) > kNothing * length * Length(up)) {
        // Slanted: turn, scale, turn, which any map of the plane is.
        const Point2 sum = 0.5 * Point2{along.x + up.y, along.y - up.x};
        const Point2 difference = 0.5 * Point2{along.x - up.y, along.y + up.x};
        const double a = std::atan2(difference.y, difference.x), b = std::atan2(sum.y, sum.x);
        place.rotation = (b + a) / 2;
        place.innerRotation = (b - a) / 2;
        place.scaleX = (Length(sum) + Length(difference)) / height;
        place.scaleY = (Length(sum) - Length(difference)) / height;
    }
    place.isUpright = place.innerRotation == 0 && std::fabs(place.rotation) < kNothing &&
                      std::fabs(place.scaleX - 1) < 10 * kNothing && place.scaleY > 0;
    return place;
}

std::string ValueForModule(std::string_view utf8, bool& isCut)
{
    std::string value;
    isCut = false;
    while (!utf8.empty() && !isCut) {
        const std::size_t plain = std::min(CountPlain(utf8), kLongestValue - value.size());
        value += utf8.substr(0, plain);
        utf8.remove_prefix(plain);
        if (utf8.empty())
            break;
        const DecodedCharacter character = DecodeUtf8(utf8);
        const std::size_t size = value.size();
        AppendUtf8(value, IsControl(character.value) ? U' ' : character.value);
        isCut = value.size() > kLongestValue;
        if (isCut)
            value.resize(size);
        utf8.remove_prefix(character.size);
    }
    return value;
}

double FloatStep(double coordinate)
{
    const auto narrow = static_cast<float>(std::min(std::fabs(coordinate), 1e38));
    return static_cast<double>(std::nextafter(narrow, std::numeric_limits<float>::max())) -
           static_cast<double>(narrow);
}

} // namespace prepare
