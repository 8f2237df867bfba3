#include "cli/contents/Units.h"

namespace plexorn {

namespace {

constexpr double kInch = 25.4;
constexpr double kSurveyInch = 1e6 / 39370; // 39.37 of them make a metre
constexpr double kMetre = 1e3;

constexpr Unit kUnits[] = {
    {1, "in", kInch},
    {2, "ft", 12 * kInch},
    {3, "mi", 63360 * kInch},
    {4, "mm", 1},
    {5, "cm", 10},
    {6, "m", kMetre},
    {7, "km", 1e3 * kMetre},
    {8, "uin", 1e-6 * kInch},
    {9, "mil", 1e-3 * kInch},
    {10, "yd", 36 * kInch},
    {11, "angstrom", 1e-7},
    {12, "nm", 1e-6},
    {13, "um", 1e-3},
    {14, "dm", 100},
    {15, "dam", 10 * kMetre},
    {16, "hm", 100 * kMetre},
    {17, "Gm", 1e9 * kMetre},
    {18, "au", 149597870700.0 * kMetre},
    {19, "ly", 9460730472580800.0 * kMetre},
    {20, "pc", 3.0856775814913673e16 * kMetre},
    {21, "usft", 12 * kSurveyInch},
    {22, "usin", kSurveyInch},
    {23, "usyd", 36 * kSurveyInch},
    {24, "usmi", 63360 * kSurveyInch},
};

constexpr int kMillimetreCode = 4;
constexpr int kInchCode = 1;

std::string WhyNoUnit(const Header& header)
{
    if (header.units.value_or(0) == 0)
        return "the drawing states no unit";
    return "$INSUNITS " + header.unitsText + " is no unit that is known";
}

Sizing Guess(const Header& header)
{
    if (header.measurement == 0)
        return {FindUnit(kInchCode), "guessed from $MEASUREMENT"};
    if (header.measurement == 1)
        return {FindUnit(kMillimetreCode), "guessed from $MEASUREMENT"};
    return {FindUnit(kMillimetreCode), "guessed, " + WhyNoUnit(header)};
}

} // namespace

const Unit* FindUnit(std::string_view name)
{
    for (const Unit& unit : kUnits)
        if (unit.name == name)
            return &unit;
    return nullptr;
}

const Unit* FindUnit(int code)
{
    for (const Unit& unit : kUnits)
        if (unit.code == code)
            return &unit;
    return nullptr;
}

std::string UnitNames()
{
    std::string names;
    for (const Unit& unit : kUnits)
        names.append(names.empty() ? "" : " ").append(unit.name);
    return names;
}

Sizing SizingFor(const Header& header, std::string_view choice)
{
    if (choice == "none")
        return {nullptr, "as asked for"};
    if (const Unit* unit = FindUnit(choice))
        return {unit, "as asked for"};
    if (const Unit* unit = header.units ? FindUnit(*header.units) : nullptr)
        return {unit, "by $INSUNITS"};
    return choice == "guess" ? Guess(header) : Sizing{nullptr, WhyNoUnit(header)};
}

} // namespace plexorn
