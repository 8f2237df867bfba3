#include "prepare/plain/DimensionText.h"

#include "base/Joined.h"
#include "base/Pi.h"
#include "prepare/plain/DimensionNumbers.h"

#include <cmath>
#include <utility>

namespace prepare {

namespace {

constexpr std::string_view kPlaceOfValue = "<>";
constexpr std::string_view kAlternate = "[]";

// More places for the measure than this have no sense, and would make long texts of short ones.
constexpr int kMostPlaces = 4;

// What is around a number, by DIMPOST and DIMAPOST: without a place for the number, a suffix.
struct Post {
    std::string prefix;
    std::string suffix;
};

Post SplitPost(std::string_view post, std::string_view place)
{
    const std::size_t at = post.find(place);
    if (at == std::string_view::npos)
        return {"", std::string(post)};
    return {std::string(post.substr(0, at)), std::string(post.substr(at + place.size()))};
}

void Replace(std::string& text, std::string_view what, std::string_view by, int most)
{
    std::size_t at = 0;
    for (int i = 0; i < most && (at = text.find(what, at)) != std::string::npos; ++i) {
        text.replace(at, what.size(), by);
        at += by.size();
    }
}

double RoundedToStep(double value, double step)
{
    return step > 0 ? std::round(value / step) * step : value;
}

// Writes the numbers of one dimension.
class ValueWriter {
public:
    ValueWriter(const DimensionStyle& style, Quantity kind) : m_style(style), m_kind(kind) {}

    std::string Main(double value) const;
    std::string Alternate(double value) const;

private:
    bool IsAngle() const { return m_kind == Quantity::Angle; }
    NumberFormat MainFormat() const;
    NumberFormat AlternateFormat() const;
    std::string Number(double value, const NumberFormat& format) const;
    std::string Limits(double value, const NumberFormat& format, const NumberFormat& tolerances,
                       double factor, const std::string& suffix) const;
    std::string Tolerances(const NumberFormat& format, double factor, const std::string& suffix) const;
    std::string Stacked(const std::string& upper, const std::string& lower) const;
    std::string Prefix() const;

    const DimensionStyle& m_style;
    Quantity m_kind;
};

char SeparatorOf(const DimensionStyle& style)
{
    return style.separator > ' ' && style.separator < 127 ? static_cast<char>(style.separator) : '.';
}

NumberFormat ValueWriter::MainFormat() const
{
    NumberFormat format;
    format.unit = IsAngle() ? m_style.angleUnit : m_style.unit;
    const bool hasOwnDecimals = IsAngle() && m_style.angleDecimals >= 0;
    format.decimals = hasOwnDecimals ? m_style.angleDecimals : m_style.decimals;
    format.zeros = IsAngle() ? m_style.angleZeros : m_style.zeros;
    format.fraction = m_style.fraction;
    format.separator = SeparatorOf(m_style);
    return format;
}

// Alternate units have numbers of their own for fractions in the line and for the desktop's.
NumberFormat ValueWriter::AlternateFormat() const
{
    constexpr std::int32_t kInLine = 2, kDecimal = 2;
    NumberFormat format = MainFormat();
    format.unit = m_style.alternateUnit;
    if (format.unit == 6 || format.unit == 7) {
        format.unit -= 2;
        format.fraction = kInLine;
    } else if (format.unit == 8) {
        format.unit = kDecimal;
    }
    format.decimals = m_style.alternateDecimals;
    format.zeros = m_style.alternateZeros;
    return format;
}

std::string ValueWriter::Number(double value, const NumberFormat& format) const
{
    return IsAngle() ? FormatAngle(value, format) : FormatLength(value, format);
}

std::string ValueWriter::Stacked(const std::string& upper, const std::string& lower) const
{
    std::string stack = Joined({"\\S", upper, "^ ", lower, ";"});
    if (m_style.toleranceHeight == 1 || !(m_style.toleranceHeight > 0))
        return stack;
    NumberFormat format;
    format.zeros = 8;
    return Joined({"{\\H", FormatLength(m_style.toleranceHeight, format), "x;", stack, "}"});
}

// Tolerances of angles are in degrees.
double InUnits(double tolerance, bool isAngle)
{
    return isAngle ? tolerance * kPi / 180 : tolerance;
}

std::string ValueWriter::Limits(double value, const NumberFormat& format, const NumberFormat& tolerances,
                                double factor, const std::string& suffix) const
{
    NumberFormat number = format;
    number.decimals = tolerances.decimals;
    const double plus = factor * InUnits(m_style.plusTolerance, IsAngle());
    const double minus = factor * InUnits(m_style.minusTolerance, IsAngle());
    return Stacked(Number(value + plus, number) + suffix, Number(value - minus, number) + suffix);
}

std::string ValueWriter::Tolerances(const NumberFormat& format, double factor,
                                    const std::string& suffix) const
{
    const double plus = factor * InUnits(m_style.plusTolerance, IsAngle());
    const double minus = factor * InUnits(m_style.minusTolerance, IsAngle());
    const auto signedNumber = [&](double value) {
        const char* const sign = value > 0 ? "+" : value < 0 ? "-" : " ";
        return Joined({sign, Number(std::fabs(value), format), suffix});
    };
    if (plus == minus)
        return plus == 0 ? "" : Joined({"±", Number(std::fabs(plus), format), suffix});
    return Stacked(signedNumber(plus), signedNumber(-minus));
}

std::string ValueWriter::Prefix() const
{
    return m_kind == Quantity::Radius ? "R" : m_kind == Quantity::Diameter ? "%%c" : "";
}

// Angles have no prefix and no suffix. A prefix of the style is in place of the kind's own.
std::string ValueWriter::Main(double value) const
{
    const Post post = IsAngle() ? Post{} : SplitPost(m_style.post, kPlaceOfValue);
    const NumberFormat format = MainFormat();
    NumberFormat tolerances = format;
    tolerances.decimals = m_style.toleranceDecimals;
    if (!IsAngle())
        tolerances.zeros = m_style.toleranceZeros;
    const std::string prefix = post.prefix.empty() ? Prefix() : post.prefix;
    if (!IsAngle())
        value = RoundedToStep(value * m_style.factor, m_style.rounding);
    if (m_style.hasLimits != 0)
        return Joined({prefix, Limits(value, format, tolerances, 1, post.suffix)});
    const std::string text = Joined({prefix, Number(value, format), post.suffix});
    return m_style.hasTolerance != 0 ? text + Tolerances(tolerances, 1, post.suffix) : text;
}

std::string ValueWriter::Alternate(double value) const
{
    const Post post = SplitPost(m_style.alternatePost, kAlternate);
    const NumberFormat format = AlternateFormat();
    NumberFormat tolerances = format;
    tolerances.decimals = m_style.alternateToleranceDecimals;
    tolerances.zeros = m_style.alternateToleranceZeros;
    const double factor = m_style.alternateFactor;
    value = RoundedToStep(value * m_style.factor * factor, m_style.alternateRounding);
    if (m_style.hasLimits != 0)
        return Joined({"[", post.prefix, Limits(value, format, tolerances, factor, post.suffix), "]"});
    std::string text = Joined({"[", post.prefix, FormatLength(value, format), post.suffix});
    if (m_style.hasTolerance != 0)
        text += Tolerances(tolerances, factor, post.suffix);
    text += "]";
    return text;
}

// At the base line is how stacks are by themselves.
std::string WithAlignedStacks(std::string text, std::int32_t alignment)
{
    constexpr std::int32_t kHalfway = 1, kAtTop = 2;
    if ((alignment != kHalfway && alignment != kAtTop) || text.find("\\S") == std::string::npos)
        return text;
    return Joined({alignment == kHalfway ? "\\A1;" : "\\A2;", text});
}

} // namespace

std::string DimensionText(const DimensionStyle& style, Quantity kind, double value, std::string_view written)
{
    constexpr double kLargest = 1e100; // what programs measure is far from this
    if (written == " " || !(std::fabs(value) < kLargest))
        return {};
    const ValueWriter writer(style, kind);
    const bool hasAlternate = style.hasAlternate != 0 && kind != Quantity::Angle;
    std::string text(written.empty() ? kPlaceOfValue : written);
    const bool placesAlternate = text.find(kAlternate) != std::string::npos;
    std::string main = writer.Main(value);
    if (hasAlternate && !placesAlternate)
        main = Joined({main, " ", writer.Alternate(value)});
    if (hasAlternate && placesAlternate)
        Replace(text, kAlternate, writer.Alternate(value), kMostPlaces);
    Replace(text, kPlaceOfValue, main, kMostPlaces);
    Replace(text, "\\X", "\\P", kMostPlaces); // what follows is below the dimension line
    return WithAlignedStacks(std::move(text), style.toleranceAlignment);
}

} // namespace prepare
