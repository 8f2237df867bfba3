#include "prepare/plain/NothingToSee.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace prepare {

namespace {

// A negative number is that of a vertex where a hidden edge begins.
bool HasHiddenEdges(const Polyline& polyface)
{
    const auto most = static_cast<std::int64_t>(polyface.vertices.size());
    return std::any_of(polyface.vertices.begin(), polyface.vertices.end(), [&](const PolylineVertex& vertex) {
        return std::any_of(std::begin(vertex.corners), std::end(vertex.corners),
                           [&](std::int32_t corner) { return corner < 0 && -std::int64_t{corner} <= most; });
    });
}

} // namespace

bool HasNothingToSee(const Entity& entity, const Drawing& drawing)
{
    constexpr std::int32_t kNoMark = 1;       // $PDMODE
    constexpr std::int32_t kBlockContent = 1; // of a leader
    switch (entity.type) {
    case EntityType::Text:
    case EntityType::MText:
    case EntityType::Attrib:
    case EntityType::AttDef:
        return true;
    case EntityType::Point:
        return drawing.header.Integer("$PDMODE", 0) == kNoMark;
    case EntityType::Face:
        return static_cast<const Solid&>(entity).hiddenEdges != 0;
    case EntityType::Hatch:
        return !static_cast<const Hatch&>(entity).lines.empty();
    case EntityType::Polyline:
        return HasHiddenEdges(static_cast<const Polyline&>(entity));
    case EntityType::MultiLeader:
        return static_cast<const MultiLeader&>(entity).contentType == kBlockContent;
    default:
        return false;
    }
}

} // namespace prepare
