#include "cli/prepare/WhyBlank.h"

#include "base/Joined.h"
#include "cli/report/Counted.h"
#include "cli/report/ShareText.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace plexorn {

namespace {

constexpr std::string_view kBlank = "nothing of it is visible: ";
constexpr std::string_view kOnlyInBlocks = "nothing inserts the blocks that its entities are in";
constexpr std::string_view kEndsBeforeOthers = "the file ends before any entity outside of its blocks";

void AddReason(std::string& reasons, const std::string& reason)
{
    reasons.append(reasons.empty() ? "" : "; ").append(reason);
}

// Adds a reason with the number of entities that it applies to, if there are any.
void AddCounted(std::string& reasons, std::uint64_t count, std::string_view what)
{
    if (count > 0)
        AddReason(reasons, Joined({Counted(count, "entity is ", "entities are "), what}));
}

// Whether all of the model space is in blocks.
bool IsAllInBlocks(const DrawingInfo& info)
{
    std::uint64_t outside = 0, inside = 0;
    for (const TypeInfo& type : info.types) {
        outside += type.inDrawing;
        inside += type.inBlocks;
    }
    return inside > 0 && outside == info.paperEntities;
}

// Of what is not shown, that which could not be drawn; sizeless is how many entities nothing came of.
Share UndrawableOf(const prepare::Report& findings, std::uint64_t& sizeless)
{
    Share share;
    for (const auto& [key, met] : findings.Entries())
        if (key.finding == prepare::Finding::NotShown && key.detail == prepare::kHasNoSize)
            sizeless += met.count;
        else if (key.finding == prepare::Finding::NotShown)
            share.missing[key.subject] += met.count;
    return share;
}

bool IsAllInBlocks(const prepare::Contents& contents)
{
    return contents.inBlocks > 0 && contents.entities == contents.inBlocks + contents.inPaperSpace;
}

// Of a file in which no entity was found.
std::string WhyNoEntity(bool hasOddLines)
{
    return Joined({kBlank, hasOddLines ? "no entity can be read in it" : "the file ends before any entity"});
}

// Of a drawing with entities in blocks alone.
std::string_view WhyOnlyInBlocks(bool isEnded)
{
    return isEnded ? kOnlyInBlocks : kEndsBeforeOthers;
}

} // namespace

std::string WhyBlank(const DrawingInfo& info, const Share& share, std::size_t elements)
{
    if (info.types.Count() == 0)
        return WhyNoEntity(info.oddLines > 0);
    std::string reasons;
    if (info.unmarkedEntry != 0)
        AddReason(reasons,
                  Joined({"the entry at line ", std::to_string(info.unmarkedEntry),
                          " has no subclass marker, and what follows it is taken for a part of it"}));
    else if (!share.missing.empty())
        AddReason(reasons, "it cannot draw " + MissingTypes(share));
    if (share.entities == 0 && IsAllInBlocks(info))
        AddReason(reasons, std::string(WhyOnlyInBlocks(info.isEnded || info.paperEntities > 0)));
    else
        AddCounted(reasons, info.hiddenEntities, "invisible");
    if (share.shown > 0)
        AddReason(reasons, elements > 0 ? "what it draws is empty or has no usable place"
                                        : "the reader does not find what it could draw");
    return Joined({kBlank, reasons.empty() ? kOnlyInBlocks : reasons});
}

std::string WhyBlank(const prepare::Report& findings)
{
    using prepare::HiddenLayer;
    const auto hidden = [&](HiddenLayer why) { return findings.hidden[static_cast<std::size_t>(why)]; };
    const prepare::Contents& contents = findings.contents;
    const bool isSheet = !findings.sheet.name.empty();
    if (contents.entities == 0)
        return WhyNoEntity(contents.hasSkippedLines);
    std::uint64_t sizeless = 0;
    const Share unable = UndrawableOf(findings, sizeless);
    std::string reasons;
    if (!unable.missing.empty())
        AddReason(reasons, "it cannot draw " + MissingTypes(unable));
    AddCounted(reasons, sizeless, "empty or without a size");
    if (!isSheet && IsAllInBlocks(contents)) {
        AddReason(reasons, std::string(WhyOnlyInBlocks(contents.isEnded || contents.inPaperSpace > 0)));
    } else {
        AddCounted(reasons, isSheet ? 0 : contents.invisible, "invisible");
        AddCounted(reasons, hidden(HiddenLayer::OffOrFrozen), "on layers that are off or frozen");
        AddCounted(reasons, hidden(HiddenLayer::NotChosen), "on layers that were not chosen");
        AddCounted(reasons, hidden(HiddenLayer::NotPlotted), "on layers that are not plotted");
    }
    AddCounted(reasons, isSheet ? 0 : contents.onSheets, "in the paper space");
    if (reasons.empty() && isSheet)
        AddReason(reasons, Joined({"the layout ", findings.sheet.name, " is empty"}));
    if (reasons.empty() && contents.inPaperSpace > 0 && contents.inPaperSpace == contents.entities)
        AddReason(reasons, "all that it holds is in the paper space");
    if (reasons.empty() && contents.masks > 0)
        AddReason(reasons, "a WIPEOUT only hides what is behind it");
    return Joined({kBlank, reasons.empty() ? "what it holds is empty or has no usable place" : reasons});
}

} // namespace plexorn
