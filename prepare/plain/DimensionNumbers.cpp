#include "prepare/plain/DimensionNumbers.h"

#include "base/Joined.h"
#include "base/Numbers.h"
#include "base/Pi.h"

#include <algorithm>
#include <cmath>

namespace prepare {

namespace {

constexpr std::int32_t kMostDecimals = 8;
constexpr double kMostWhole = 1e15; // halves and smaller parts still count

// Units of length.
enum : std::int32_t { kScientific = 1, kDecimal, kEngineering, kArchitectural, kFractional };
// Units of angles.
enum : std::int32_t { kDegrees = 0, kMinutes, kGrads, kRadians, kSurveyor };

// What zeros says of decimals, and its two lowest bits of feet and inches.
constexpr std::int32_t kNoLeadingZero = 4;
enum : std::int32_t { kWithoutZeros = 0, kWithZeros, kWithZeroFeet, kWithZeroInches };

std::int32_t Usable(std::int32_t decimals)
{
    return std::clamp<std::int32_t>(decimals, 0, kMostDecimals);
}

// Halves are rounded up, though the nearest double may be below them.
double Nudged(double value)
{
    return value < kMostWhole ? value * (1 + 1e-13) : value;
}

using Formatter = char* (*)(double value, int decimals, char* out);

std::string ToText(double value, Formatter form, std::int32_t decimals)
{
    char text[kLongestFormatted];
    return {text, form(Nudged(value), decimals, text)};
}

void DropZeros(std::string& text, std::int32_t zeros)
{
    const std::size_t point = text.find('.');
    if (point == std::string::npos)
        return;
    if ((zeros & kNoTrailingZeros) != 0) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.')
            text.pop_back();
    }
    if ((zeros & kNoLeadingZero) != 0 && text.size() > 1 && text[0] == '0' && text[1] == '.')
        text.erase(0, 1);
}

// A number that is not below 0.
std::string Decimal(double value, const NumberFormat& format)
{
    std::string text = ToText(value, FormatFixed, Usable(format.decimals));
    DropZeros(text, format.zeros);
    std::replace(text.begin(), text.end(), '.', format.separator);
    return text;
}

std::string Scientific(double value, const NumberFormat& format)
{
    std::string text = ToText(value, FormatScientific, Usable(format.decimals));
    std::replace(text.begin(), text.end(), 'e', 'E');
    std::replace(text.begin(), text.end(), '.', format.separator);
    return text;
}

std::string Whole(double value)
{
    return ToText(value, FormatFixed, 0);
}

std::string Fraction(std::int64_t upper, std::int64_t lower, std::int32_t form)
{
    constexpr std::int32_t kDiagonal = 1, kInLine = 2;
    const char* const sign = form == kDiagonal ? "#" : "/";
    const std::string text = Joined({std::to_string(upper), sign, std::to_string(lower)});
    return form == kInLine ? text : Joined({"\\S", text, ";"});
}

// A value in parts of an inch, or of a unit.
struct Parts {
    double whole = 0;
    std::int64_t upper = 0;
    std::int64_t lower = 1;
};

Parts InParts(double value, std::int32_t decimals)
{
    Parts parts;
    parts.lower = std::int64_t{1} << Usable(decimals);
    const double count = std::floor(value * static_cast<double>(parts.lower) + 0.5);
    parts.whole = std::floor(count / static_cast<double>(parts.lower));
    parts.upper = static_cast<std::int64_t>(count - parts.whole * static_cast<double>(parts.lower));
    for (; parts.upper != 0 && parts.upper % 2 == 0; parts.upper /= 2)
        parts.lower /= 2;
    return parts;
}

// The whole number may be left out when it is 0.
std::string FractionalText(const Parts& parts, bool needsWhole, std::int32_t form)
{
    if (parts.upper == 0)
        return Whole(parts.whole);
    std::string fraction = Fraction(parts.upper, parts.lower, form);
    if (parts.whole == 0 && !needsWhole)
        return fraction;
    constexpr std::int32_t kInLine = 2;
    return Joined({Whole(parts.whole), form == kInLine ? " " : "", fraction});
}

// Feet and inches, each left out when it is 0 and zeros wants that.
std::string JoinFeet(double feet, bool hasInches, const std::string& inches, std::int32_t zeros)
{
    const bool needsFeet = feet != 0 || zeros == kWithZeros || zeros == kWithZeroFeet;
    const bool needsInches = hasInches || zeros == kWithZeros || zeros == kWithZeroInches || !needsFeet;
    std::string text;
    if (needsFeet)
        text = Whole(feet) + "'";
    if (needsFeet && needsInches)
        text += "-";
    return needsInches ? Joined({text, inches, "\""}) : text;
}

bool NeedsFeet(double feet, std::int32_t zeros)
{
    return feet != 0 || zeros == kWithZeros || zeros == kWithZeroFeet;
}

std::string Engineering(double value, const NumberFormat& format)
{
    const double step = std::pow(10.0, Usable(format.decimals));
    const double rounded = std::floor(Nudged(value) * step + 0.5) / step;
    const double feet = std::floor(rounded / 12);
    const double inches = std::max(0.0, rounded - feet * 12);
    return JoinFeet(feet, inches * step > 0.5, Decimal(inches, format), format.zeros & 3);
}

std::string Architectural(double value, const NumberFormat& format)
{
    Parts inches = InParts(value, format.decimals);
    const double feet = std::floor(inches.whole / 12);
    inches.whole -= feet * 12;
    const std::int32_t zeros = format.zeros & 3;
    const std::string text = FractionalText(inches, NeedsFeet(feet, zeros), format.fraction);
    return JoinFeet(feet, inches.whole != 0 || inches.upper != 0, text, zeros);
}

std::string Positive(double value, const NumberFormat& format)
{
    const bool hasParts = value < kMostWhole;
    if (format.unit == kScientific)
        return Scientific(value, format);
    if (format.unit == kEngineering && hasParts)
        return Engineering(value, format);
    if (format.unit == kArchitectural && hasParts)
        return Architectural(value, format);
    if (format.unit == kFractional && hasParts)
        return FractionalText(InParts(value, format.decimals), false, format.fraction);
    return Decimal(value, format);
}

bool HasDigit(const std::string& text)
{
    return text.find_first_of("123456789") != std::string::npos;
}

// Angles leave out zeros by two bits of their own.
NumberFormat OfAngles(const NumberFormat& format)
{
    NumberFormat angles = format;
    angles.zeros = (format.zeros & 1) * kNoLeadingZero + (format.zeros >> 1 & 1) * kNoTrailingZeros;
    return angles;
}

// Up to two decimals ask for minutes, two more for seconds, and what is left for decimals of those.
std::string DegreesAndMinutes(double degrees, const NumberFormat& format)
{
    const std::int32_t decimals = Usable(format.decimals);
    NumberFormat seconds = format;
    seconds.decimals = std::max(0, decimals - 4);
    const double perDegree = decimals == 0 ? 1 : decimals <= 2 ? 60 : 3600 * std::pow(10.0, seconds.decimals);
    const double count = std::floor(Nudged(degrees) * perDegree + 0.5);
    const double whole = std::floor(count / perDegree);
    std::string text = Whole(whole) + "°";
    if (decimals == 0)
        return text;
    const double left = (count - whole * perDegree) / perDegree * 60; // minutes
    if (decimals <= 2)
        return Joined({text, Whole(left), "'"});
    const double minutes = std::floor(left + 0.5 / perDegree);
    const std::string rest = Decimal(std::max(0.0, left - minutes) * 60, seconds);
    return Joined({text, Whole(minutes), "'", rest, "\""});
}

// From north or south towards east or west.
std::string Bearing(double degrees, const NumberFormat& format)
{
    degrees = std::fmod(degrees, 360);
    const bool isNorth = degrees <= 180, isEast = degrees <= 90 || degrees >= 270;
    const double fromNorth = std::fabs(degrees - (isNorth ? 90 : 270));
    return Joined({isNorth ? "N" : "S", DegreesAndMinutes(fromNorth, format), isEast ? "E" : "W"});
}

} // namespace

std::string FormatLength(double value, const NumberFormat& format)
{
    if (!std::isfinite(value))
        return {};
    const std::string text = Positive(std::fabs(value), format);
    return value < 0 && HasDigit(text) ? Joined({"-", text}) : text;
}

std::string FormatAngle(double radians, const NumberFormat& format)
{
    if (!std::isfinite(radians))
        return {};
    const NumberFormat angles = OfAngles(format);
    const double degrees = std::fabs(radians) * 180 / kPi;
    const bool hasParts = degrees < kMostWhole;
    if (format.unit == kMinutes && hasParts)
        return DegreesAndMinutes(degrees, angles);
    if (format.unit == kSurveyor && hasParts)
        return Bearing(degrees, angles);
    if (format.unit == kGrads)
        return Decimal(degrees / 0.9, angles) + "g";
    if (format.unit == kRadians)
        return Decimal(std::fabs(radians), angles) + "r";
    return Decimal(degrees, angles) + "°";
}

} // namespace prepare
