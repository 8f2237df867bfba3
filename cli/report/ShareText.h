// How much of a drawing is shown, for people and for programs.
#pragma once

#include "cli/contents/Share.h"
#include "cli/report/Json.h"

#include <string>

namespace plexorn {

// "10 of 12 entities shown (83.3 %)". The percentage is rounded down: only all is 100.
std::string ShareText(const Share& share);
// "2 HATCH, 1 SPLINE": the types with the most entities that are missing, and how many more there are.
std::string MissingTypes(const Share& share);
// "; missing: 2 HATCH; shown otherwise: 1 text not turned", or an empty text.
std::string MissingText(const Share& share);

// The member "share" of the object that is open.
void AddShare(Json& json, const Share& share);

} // namespace plexorn
