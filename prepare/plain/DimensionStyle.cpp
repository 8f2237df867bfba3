#include "prepare/plain/DimensionStyle.h"

#include "base/Numbers.h"
#include "base/Utf8.h"
#include "prepare/plain/DimensionNumbers.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace prepare {

namespace {

template <typename T>
struct VariableRow {
    std::int32_t code;
    std::string_view name; // in the HEADER
    T DimensionStyle::*member;
};

// Ascending codes.
constexpr VariableRow<double> kReals[] = {
    {40, "$DIMSCALE", &DimensionStyle::scale},
    {41, "$DIMASZ", &DimensionStyle::arrowSize},
    {42, "$DIMEXO", &DimensionStyle::extensionOffset},
    {44, "$DIMEXE", &DimensionStyle::extensionBeyond},
    {45, "$DIMRND", &DimensionStyle::rounding},
    {46, "$DIMDLE", &DimensionStyle::lineBeyond},
    {47, "$DIMTP", &DimensionStyle::plusTolerance},
    {48, "$DIMTM", &DimensionStyle::minusTolerance},
    {49, "$DIMFXL", &DimensionStyle::fixedExtension},
    {50, "$DIMJOGANG", &DimensionStyle::jogAngle},
    {140, "$DIMTXT", &DimensionStyle::textHeight},
    {141, "$DIMCEN", &DimensionStyle::centreMark},
    {142, "$DIMTSZ", &DimensionStyle::tickSize},
    {143, "$DIMALTF", &DimensionStyle::alternateFactor},
    {144, "$DIMLFAC", &DimensionStyle::factor},
    {145, "$DIMTVP", &DimensionStyle::textOffset},
    {146, "$DIMTFAC", &DimensionStyle::toleranceHeight},
    {147, "$DIMGAP", &DimensionStyle::gap},
    {148, "$DIMALTRND", &DimensionStyle::alternateRounding},
};

constexpr VariableRow<std::int32_t> kIntegers[] = {
    {69, "$DIMTFILL", &DimensionStyle::textFill},
    {70, "$DIMTFILLCLR", &DimensionStyle::textFillColour},
    {71, "$DIMTOL", &DimensionStyle::hasTolerance},
    {72, "$DIMLIM", &DimensionStyle::hasLimits},
    {73, "$DIMTIH", &DimensionStyle::isHorizontalInside},
    {74, "$DIMTOH", &DimensionStyle::isHorizontalOutside},
    {75, "$DIMSE1", &DimensionStyle::hidesExtension1},
    {76, "$DIMSE2", &DimensionStyle::hidesExtension2},
    {77, "$DIMTAD", &DimensionStyle::placement},
    {78, "$DIMZIN", &DimensionStyle::zeros},
    {79, "$DIMAZIN", &DimensionStyle::angleZeros},
    {90, "$DIMARCSYM", &DimensionStyle::arcSymbol},
    {170, "$DIMALT", &DimensionStyle::hasAlternate},
    {171, "$DIMALTD", &DimensionStyle::alternateDecimals},
    {172, "$DIMTOFL", &DimensionStyle::drawsLineInside},
    {173, "$DIMSAH", &DimensionStyle::hasTwoArrows},
    {174, "$DIMTIX", &DimensionStyle::keepsTextInside},
    {175, "$DIMSOXD", &DimensionStyle::hidesLineOutside},
    {176, "$DIMCLRD", &DimensionStyle::lineColour},
    {177, "$DIMCLRE", &DimensionStyle::extensionColour},
    {178, "$DIMCLRT", &DimensionStyle::textColour},
    {179, "$DIMADEC", &DimensionStyle::angleDecimals},
    {271, "$DIMDEC", &DimensionStyle::decimals},
    {272, "$DIMTDEC", &DimensionStyle::toleranceDecimals},
    {273, "$DIMALTU", &DimensionStyle::alternateUnit},
    {274, "$DIMALTTD", &DimensionStyle::alternateToleranceDecimals},
    {275, "$DIMAUNIT", &DimensionStyle::angleUnit},
    {276, "$DIMFRAC", &DimensionStyle::fraction},
    {277, "$DIMLUNIT", &DimensionStyle::unit},
    {278, "$DIMDSEP", &DimensionStyle::separator},
    {279, "$DIMTMOVE", &DimensionStyle::textMove},
    {280, "$DIMJUST", &DimensionStyle::justification},
    {281, "$DIMSD1", &DimensionStyle::hidesLine1},
    {282, "$DIMSD2", &DimensionStyle::hidesLine2},
    {283, "$DIMTOLJ", &DimensionStyle::toleranceAlignment},
    {284, "$DIMTZIN", &DimensionStyle::toleranceZeros},
    {285, "$DIMALTZ", &DimensionStyle::alternateZeros},
    {286, "$DIMALTTZ", &DimensionStyle::alternateToleranceZeros},
    {289, "$DIMATFIT", &DimensionStyle::fit},
    {290, "$DIMFXLON", &DimensionStyle::hasFixedExtension},
    {371, "$DIMLWD", &DimensionStyle::lineWeight},
    {372, "$DIMLWE", &DimensionStyle::extensionWeight},
};

// The unit of R13 and R14 distinguishes stacked fractions from those in the line.
struct OldUnit {
    std::int32_t unit;
    std::int32_t fraction;
};
constexpr OldUnit kOldUnits[] = {{2, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 0}, {4, 2}, {5, 2}, {6, 0}};

// The row of that code; null when there is none.
template <typename T, std::size_t kCount>
const VariableRow<T>* FindRow(const VariableRow<T> (&rows)[kCount], std::int32_t code)
{
    const auto* const found =
        std::lower_bound(std::begin(rows), std::end(rows), code,
                         [](const VariableRow<T>& row, std::int32_t sought) { return row.code < sought; });
    return found != std::end(rows) && found->code == code ? found : nullptr;
}

// A style is read again for each dimension: longer ones, which no program writes, are cut.
constexpr std::size_t kMostValues = 256;
constexpr std::size_t kLongestVariable = 256;

std::string Shortened(std::string_view text)
{
    return std::string(StartOfUtf8(text, kLongestVariable));
}

// Sizes that programs write are far from this; products of them stay finite.
constexpr double kLargest = 1e100;

Handle HandleOf(std::string_view text)
{
    return ParseHex(Trim(text)).value_or(0);
}

// Reads a style's values one after another: later ones replace earlier ones.
class StyleReader {
public:
    StyleReader(const Drawing& drawing, DimensionStyle& style) : m_drawing(drawing), m_style(style) {}

    void ReadHeader();
    void ReadValue(std::int32_t code, std::string_view text);
    void Finish();

private:
    void ReadText(std::int32_t code, std::string_view text);
    void ReadHandle(std::int32_t code, Handle handle);
    void ReadLineType(std::int32_t code, Handle handle);
    void ReadOldUnit(std::int32_t unit);
    void SetReal(double DimensionStyle::*member, double value);
    void ScaleLengths();

    const Drawing& m_drawing;
    DimensionStyle& m_style;
    std::string m_arrows[3]; // both, the first, the second
};

void StyleReader::SetReal(double DimensionStyle::*member, double value)
{
    if (std::fabs(value) < kLargest)
        m_style.*member = value;
}

void StyleReader::ReadHeader()
{
    const Header& header = m_drawing.header;
    for (const auto& row : kReals)
        SetReal(row.member, header.Real(row.name, m_style.*row.member));
    for (const auto& row : kIntegers)
        m_style.*row.member = header.Integer(row.name, m_style.*row.member);
    const std::int32_t oldUnit = header.Integer("$DIMUNIT", 0);
    if (oldUnit != 0)
        ReadOldUnit(oldUnit);
    ReadText(3, header.Text("$DIMPOST"));
    ReadText(4, header.Text("$DIMAPOST"));
    ReadText(5, header.Text("$DIMBLK"));
    ReadText(6, header.Text("$DIMBLK1"));
    ReadText(7, header.Text("$DIMBLK2"));
    m_style.textStyle = m_drawing.names.Find(header.Text("$DIMTXSTY"));
    m_style.lineType = m_drawing.names.Find(header.Text("$DIMLTYPE"));
    m_style.extensionTypes[0] = m_drawing.names.Find(header.Text("$DIMLTEX1"));
    m_style.extensionTypes[1] = m_drawing.names.Find(header.Text("$DIMLTEX2"));
}

void StyleReader::ReadValue(std::int32_t code, std::string_view text)
{
    if (const auto* const real = FindRow(kReals, code))
        SetReal(real->member, ParseReal(text));
    else if (const auto* const integer = FindRow(kIntegers, code))
        m_style.*integer->member = ParseInteger(text);
    else if (code == 270)
        ReadOldUnit(ParseInteger(text));
    else if (code >= 340 && code <= 347)
        ReadHandle(code, HandleOf(text));
    else
        ReadText(code, text);
}

// Blocks of arrows have names up to R14, and handles since.
void StyleReader::ReadText(std::int32_t code, std::string_view text)
{
    if (code == 3)
        m_style.post = Shortened(text);
    else if (code == 4)
        m_style.alternatePost = Shortened(text);
    else if (code >= 5 && code <= 7)
        m_arrows[code - 5] = Shortened(Trim(text));
}

void StyleReader::ReadHandle(std::int32_t code, Handle handle)
{
    if (code >= 345) {
        ReadLineType(code, handle);
    } else if (code == 340) {
        const auto found = m_drawing.textStyleOfHandle.find(handle);
        if (found != m_drawing.textStyleOfHandle.end())
            m_style.textStyle = found->second;
    } else if (code >= 342) {
        const auto found = m_drawing.blockOfRecord.find(handle);
        const bool isKnown = found != m_drawing.blockOfRecord.end();
        m_arrows[code - 342] = Shortened(isKnown ? m_drawing.names.Text(found->second) : "");
    }
}

void StyleReader::ReadLineType(std::int32_t code, Handle handle)
{
    const auto found = m_drawing.lineTypeOfHandle.find(handle);
    const NameId name = found != m_drawing.lineTypeOfHandle.end() ? found->second : kNoName;
    if (code == 345)
        m_style.lineType = name;
    else
        m_style.extensionTypes[code - 346] = name;
}

void StyleReader::ReadOldUnit(std::int32_t unit)
{
    if (unit < 1 || unit >= static_cast<std::int32_t>(std::size(kOldUnits)))
        return;
    m_style.unit = kOldUnits[unit].unit;
    m_style.fraction = kOldUnits[unit].fraction;
}

void StyleReader::ScaleLengths()
{
    if (!(m_style.scale > 0)) // 0: by the viewport that shows it
        m_style.scale = 1;
    for (double DimensionStyle::*length :
         {&DimensionStyle::arrowSize, &DimensionStyle::extensionOffset, &DimensionStyle::extensionBeyond,
          &DimensionStyle::lineBeyond, &DimensionStyle::fixedExtension, &DimensionStyle::textHeight,
          &DimensionStyle::centreMark, &DimensionStyle::tickSize, &DimensionStyle::gap})
        m_style.*length *= m_style.scale;
}

void StyleReader::Finish()
{
    // A style of letters that have one height has the last word, and that is not scaled.
    const TextStyle* const letters = m_drawing.FindTextStyle(m_style.textStyle);
    ScaleLengths();
    if (letters != nullptr && letters->height > 0 && letters->height < kLargest)
        m_style.textHeight = letters->height;
    m_style.textHeight = std::fabs(m_style.textHeight);
    if (m_style.factor <= 0) // below 0: only in paper space; 0 would measure nothing
        m_style.factor = 1;
    m_style.arrow1 = m_style.hasTwoArrows != 0 ? m_arrows[1] : m_arrows[0];
    m_style.arrow2 = m_style.hasTwoArrows != 0 ? m_arrows[2] : m_arrows[0];
}

// A drawing without variables for its dimensions comes from a program that draws them in units of the
// drawing, with texts of height 1; smaller ones would not be seen.
void UseUnitSizes(DimensionStyle& style)
{
    style.textHeight = style.arrowSize = 1;
    style.extensionOffset = style.gap = 0.25;
    style.extensionBeyond = 0.5;
    style.zeros = kNoTrailingZeros; // nothing says how many digits there are
}

// Up to R12 dimensions have the units of the whole drawing, and no fractions above each other.
void UseUnitsOfDrawing(const Header& header, DimensionStyle& style)
{
    if (!IsUpToR12(header))
        return;
    style.unit = header.Integer("$LUNITS", style.unit);
    style.decimals = header.Integer("$LUPREC", style.decimals);
    style.toleranceDecimals = style.decimals;
    style.angleUnit = header.Integer("$AUNITS", style.angleUnit);
    style.angleDecimals = header.Integer("$AUPREC", style.angleDecimals);
    style.fraction = 2;
}

} // namespace

bool IsUpToR12(const Header& header)
{
    const std::string_view version = header.Text("$ACADVER");
    return !version.empty() && version <= "AC1009";
}

DimensionStyle DimensionStyleOf(const Drawing& drawing, NameId style,
                                const std::vector<std::pair<std::int32_t, std::string>>& overrides)
{
    DimensionStyle result;
    StyleReader reader(drawing, result);
    UseUnitsOfDrawing(drawing.header, result);
    const auto found = drawing.dimStyles.find(style);
    if (found == drawing.dimStyles.end() && drawing.header.Text("$DIMTXT").empty())
        UseUnitSizes(result);
    if (found == drawing.dimStyles.end())
        reader.ReadHeader();
    else
        for (const auto& [code, text] :
             std::span(found->second.values).first(std::min(found->second.values.size(), kMostValues)))
            reader.ReadValue(code, text);
    for (const auto& [code, text] : overrides)
        reader.ReadValue(code, text);
    reader.Finish();
    return result;
}

} // namespace prepare
