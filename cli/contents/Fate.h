// What becomes of the entities of each type, as the module's own list says.
#pragma once

#include <string_view>

namespace plexorn {

enum class Fate {
    Drawn,
    Skipped,    // not drawn, and no message says so
    Unknown,    // not drawn, reported by name and line
    PassedOver, // only within a block: not taken for an entity, and no message says so
};

// What becomes of an entity of that type in the ENTITIES section, and within a block.
Fate FateInDrawing(std::string_view type);
Fate FateInBlock(std::string_view type);

// "drawn", "skipped", "unknown", "passed over".
std::string_view NameOfFate(Fate fate);
// The same as part of a sentence for people.
std::string_view TextOfFate(Fate fate);

} // namespace plexorn
