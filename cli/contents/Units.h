// The units that a drawing can be in.
#pragma once

#include "cli/contents/Header.h"

#include <string>
#include <string_view>

namespace plexorn {

struct Unit {
    int code;              // as $INSUNITS gives it
    std::string_view name; // as --units takes it
    double millimetres;
};

// The unit of that name or code; null if there is no such unit.
const Unit* FindUnit(std::string_view name);
const Unit* FindUnit(int code);

// The names of all units, separated by blanks.
std::string UnitNames();

// A picture's size: the unit it is taken from, and the reason, for the closing line.
struct Sizing {
    const Unit* unit = nullptr; // null: the size is in pixels
    std::string reason;
};

// The sizing for a drawing with that header, by what was asked for: "header" ($INSUNITS alone), "guess"
// ($INSUNITS, else $MEASUREMENT, else millimetres), "none", or a unit's name.
Sizing SizingFor(const Header& header, std::string_view choice);

} // namespace plexorn
