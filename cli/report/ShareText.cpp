#include "cli/report/ShareText.h"

#include "cli/report/Counted.h"
#include "cli/report/Printable.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace plexorn {

namespace {

// More of them do not help people; programs get all of them.
constexpr std::size_t kMostTypes = 20;

// As Hidden lists them.
constexpr std::string_view kHiddenNames[] = {"offOrFrozen", "notChosen", "notPlotted", "viewportsOff"};

// What the drawing itself hides.
std::string HiddenText(const Share& share)
{
    const auto hidden = [&](Hidden why) { return share.hidden[static_cast<std::size_t>(why)]; };
    std::string text;
    if (const std::uint64_t count = hidden(Hidden::OffOrFrozen); count > 0)
        text.append("; ").append(Counted(count, "more is on a layer that is off or frozen",
                                         "more are on layers that are off or frozen"));
    if (const std::uint64_t count = hidden(Hidden::InViewportsOff); count > 0)
        text.append("; ").append(Counted(count, "viewport is off", "viewports are off"));
    return text;
}

} // namespace

std::string ShareText(const Share& share)
{
    if (share.entities == 0)
        return "no entities";
    if (share.shown == share.entities)
        return (share.shown > 1 && !share.isCut ? "all " : "") +
               Counted(share.entities, "entity", "entities") + " shown";
    const auto tenths = static_cast<unsigned>(std::floor(share.Percent() * 10));
    return std::to_string(share.shown) + " of " + Counted(share.entities, "entity", "entities") + " shown (" +
           std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " %)";
}

std::string MissingTypes(const Share& share)
{
    std::vector<std::pair<std::string, std::uint64_t>> types(share.missing.begin(), share.missing.end());
    std::stable_sort(types.begin(), types.end(),
                     [](const auto& a, const auto& b) { return a.second > b.second; });
    std::string text;
    std::uint64_t further = 0;
    for (std::size_t i = 0; i < types.size(); ++i) {
        const auto& [type, count] = types[i];
        if (i < kMostTypes)
            text.append(text.empty() ? "" : ", ")
                .append(std::to_string(count))
                .append(" ")
                .append(Printable(type));
        else
            further += count;
    }
    if (further > 0)
        text.append(", ").append(std::to_string(further)).append(" of ");
    return further > 0 ? text + Counted(types.size() - kMostTypes, "other type", "other types") : text;
}

std::string MissingText(const Share& share)
{
    std::string otherwise;
    const std::string missing = share.missing.empty() ? "" : "; missing: " + MissingTypes(share);
    for (std::size_t i = 0; i < kDifferenceCount; ++i)
        if (share.otherwise[i] > 0)
            otherwise.append(otherwise.empty() ? "; shown otherwise: " : ", ")
                .append(Counted(share.otherwise[i], kDifferenceRows[i].singular, kDifferenceRows[i].plural));
    for (const auto& [how, count] : share.changed)
        otherwise.append(otherwise.empty() ? "; shown otherwise: " : ", ")
            .append(std::to_string(count))
            .append(" ")
            .append(Printable(how));
    return missing + otherwise + HiddenText(share);
}

void AddShare(Json& json, const Share& share)
{
    json.Name("share").Open('{').Member("entities", share.entities).Member("shown", share.shown);
    json.Member("percent", share.Percent()).Name("missing").Open('{');
    for (const auto& [type, count] : share.missing)
        json.Member(type, count);
    json.Close('}').Name("otherwise").Open('{');
    for (std::size_t i = 0; i < kDifferenceCount; ++i)
        if (share.otherwise[i] > 0)
            json.Member(kDifferenceRows[i].name, share.otherwise[i]);
    for (const auto& [how, count] : share.changed)
        json.Member(how, count);
    json.Close('}').Name("hidden").Open('{');
    for (std::size_t i = 0; i < share.hidden.size(); ++i)
        if (share.hidden[i] > 0)
            json.Member(kHiddenNames[i], share.hidden[i]);
    json.Close('}').Close('}');
}

} // namespace plexorn
