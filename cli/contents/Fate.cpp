#include "cli/contents/Fate.h"

#include "reader/EntityTypes.h"

#include <cstddef>

namespace plexorn {

Fate FateInDrawing(std::string_view type)
{
    const Fate fate = FateInBlock(type);
    return fate == Fate::PassedOver ? Fate::Unknown : fate;
}

Fate FateInBlock(std::string_view type)
{
    switch (FateOfEntityType(type)) {
    case DXF_ENTITY_FATE::Drawn:
        return Fate::Drawn;
    case DXF_ENTITY_FATE::Skipped:
        return Fate::Skipped;
    case DXF_ENTITY_FATE::Unknown:
        return Fate::Unknown;
    case DXF_ENTITY_FATE::None:
        break;
    }
    return Fate::PassedOver;
}

std::string_view NameOfFate(Fate fate)
{
    constexpr std::string_view kNames[] = {"drawn", "skipped", "unknown", "passed over"};
    return kNames[static_cast<std::size_t>(fate)];
}

std::string_view TextOfFate(Fate fate)
{
    constexpr std::string_view kTexts[] = {"drawn", "skipped: not drawn by this version",
                                           "reported as unknown", "passed over without a message"};
    return kTexts[static_cast<std::size_t>(fate)];
}

} // namespace plexorn
