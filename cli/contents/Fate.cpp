#include "cli/contents/Fate.h"

#include <algorithm>
#include <iterator>

namespace plexorn {

namespace {

constexpr std::string_view kDrawnTypes[] = {"LINE", "ARC",   "CIRCLE", "ELLIPSE",  "LWPOLYLINE",
                                            "TEXT", "MTEXT", "INSERT", "DIMENSION"};

constexpr std::string_view kSkippedTypes[] = {"POLYLINE", "SPLINE", "POINT", "HATCH", "VIEWPORT"};

// The other names that begin an entity within a block; between its entities, the reader passes over any other
// line.
constexpr std::string_view kOtherTypes[] = {"3DFACE",       "3DSOLID",   "ACAD_PROXY_ENTITY",
                                            "ATTDEF",       "ATTRIB",    "BODY",
                                            "HELIX",        "IMAGE",     "LEADER",
                                            "LIGHT",        "MESH",      "MLEADER",
                                            "MLEADERSTYLE", "MLINE",     "OLEFRAME",
                                            "OLE2FRAME",    "RAY",       "REGION",
                                            "SECTION",      "SEQEND",    "SHAPE",
                                            "SOLID",        "SUN",       "SURFACE",
                                            "TABLE",        "TOLERANCE", "TRACE",
                                            "UNDERLAY",     "VERTEX",    "WIPEOUT",
                                            "XLINE"};

template <std::size_t Count>
bool Holds(const std::string_view (&names)[Count], std::string_view name)
{
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

} // namespace

Fate FateInDrawing(std::string_view type)
{
    if (Holds(kDrawnTypes, type))
        return Fate::Drawn;
    return Holds(kSkippedTypes, type) ? Fate::Skipped : Fate::Unknown;
}

Fate FateInBlock(std::string_view type)
{
    Fate fate = FateInDrawing(type);
    return fate == Fate::Unknown && !Holds(kOtherTypes, type) ? Fate::PassedOver : fate;
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
