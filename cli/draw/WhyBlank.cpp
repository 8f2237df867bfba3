#include "cli/draw/WhyBlank.h"

#include "cli/report/Joined.h"
#include "cli/report/ShareText.h"

#include <algorithm>

namespace plexorn {

namespace {

void AddReason(std::string& reasons, const std::string& reason)
{
    reasons.append(reasons.empty() ? "" : "; ").append(reason);
}

} // namespace

bool HoldsEntities(const DrawingInfo& info)
{
    return info.types.Count() > 0;
}

std::string WhyBlank(const DrawingInfo& info, const Share& share, std::size_t elements)
{
    std::string reasons;
    if (info.unmarkedEntry != 0)
        AddReason(reasons,
                  Joined({"the entry at line ", std::to_string(info.unmarkedEntry),
                          " has no subclass marker, and what follows it is taken for a part of it"}));
    else if (!share.missing.empty())
        AddReason(reasons, "it cannot draw " + MissingTypes(share));
    if (info.hiddenEntities > 0)
        AddReason(reasons, std::to_string(info.hiddenEntities) +
                               (info.hiddenEntities == 1 ? " entity is" : " entities are") + " invisible");
    if (share.shown > 0)
        AddReason(reasons, elements > 0 ? "what it draws is empty or has no usable place"
                                        : "the reader does not find what it could draw");
    if (reasons.empty())
        reasons = "nothing inserts the blocks that its entities are in";
    return "nothing of it is visible: " + reasons;
}

} // namespace plexorn
