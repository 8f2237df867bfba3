// Light shades of colours.
#pragma once

#include "prepare/plain/Plain.h"

namespace prepare {

// The true colour halfway between that one and white; a grey for what shows on any background.
Colour LightColour(const Colour& colour);

} // namespace prepare
