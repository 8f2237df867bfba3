#include "units.h"

namespace plexorn {

namespace {

constexpr double Inch = 25.4;
constexpr double SurveyInch = 1e6 / 39370; // 39.37 of them make a metre
constexpr double Metre = 1e3;

constexpr Unit Units[] = {
    {1, "in", Inch},
    {2, "ft", 12 * Inch},
    {3, "mi", 63360 * Inch},
    {4, "mm", 1},
    {5, "cm", 10},
    {6, "m", Metre},
    {7, "km", 1e3 * Metre},
    {8, "uin", 1e-6 * Inch},
    {9, "mil", 1e-3 * Inch},
    {10, "yd", 36 * Inch},
    {11, "angstrom", 1e-7},
    {12, "nm", 1e-6},
    {13, "um", 1e-3},
    {14, "dm", 100},
    {15, "dam", 10 * Metre},
    {16, "hm", 100 * Metre},
    {17, "Gm", 1e9 * Metre},
    {18, "au", 149597870700.0 * Metre},
    {19, "ly", 9460730472580800.0 * Metre},
    {20, "pc", 3.0856775814913673e16 * Metre},
    {21, "usft", 12 * SurveyInch},
    {22, "usin", SurveyInch},
    {23, "usyd", 36 * SurveyInch},
    {24, "usmi", 63360 * SurveyInch},
};

constexpr int MillimetreCode = 4;
constexpr int InchCode = 1;

std::string WhyNoUnit(const Header& header)
{
    if (header.units.value_or(0) == 0)
        return "the drawing states no unit";
    return "$INSUNITS " + header.unitsText + " is no unit that is known";
}

Sizing Guess(const Header& header)
{
    if (header.measurement == 0)
        return {FindUnit(InchCode), "guessed from $MEASUREMENT"};
    if (header.measurement == 1)
        return {FindUnit(MillimetreCode), "guessed from $MEASUREMENT"};
    return {FindUnit(MillimetreCode), "guessed, " + WhyNoUnit(header)};
}

} // namespace

const Unit* FindUnit(std::string_view name)
{
    for (const Unit& unit : Units)
        if (unit.name == name)
            return &unit;
    return nullptr;
}

const Unit* FindUnit(int code)
{
    for (const Unit& unit : Units)
        if (unit.code == code)
            return &unit;
    return nullptr;
}

std::string UnitNames()
{
    std::string names;
    for (const Unit& unit : Units)
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
