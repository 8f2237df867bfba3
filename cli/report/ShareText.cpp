#include "cli/report/ShareText.h"

#include "cli/report/Printable.h"

#include <cmath>
#include <string_view>

namespace plexorn {

namespace {

std::string Counted(std::uint64_t number, std::string_view singular, std::string_view plural)
{
    return std::to_string(number).append(" ").append(number == 1 ? singular : plural);
}

} // namespace

std::string ShareText(const Share& share)
{
    if (share.entities == 0)
        return "no entities";
    if (share.shown == share.entities)
        return (share.shown > 1 ? "all " : "") + Counted(share.entities, "entity", "entities") + " shown";
    const auto tenths = static_cast<unsigned>(std::floor(share.Percent() * 10));
    return std::to_string(share.shown) + " of " + Counted(share.entities, "entity", "entities") + " shown (" +
           std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " %)";
}

std::string MissingText(const Share& share)
{
    std::string missing, otherwise;
    for (const auto& [type, count] : share.missing)
        missing.append(missing.empty() ? "; missing: " : ", ")
            .append(std::to_string(count))
            .append(" ")
            .append(Printable(type));
    for (std::size_t i = 0; i < kOtherwiseCount; ++i)
        if (share.otherwise[i] > 0)
            otherwise.append(otherwise.empty() ? "; shown otherwise: " : ", ")
                .append(Counted(share.otherwise[i], kOtherwiseRows[i].singular, kOtherwiseRows[i].plural));
    return missing + otherwise;
}

void AddShare(Json& json, const Share& share)
{
    json.Name("share").Open('{').Member("entities", share.entities).Member("shown", share.shown);
    json.Member("percent", share.Percent()).Name("missing").Open('{');
    for (const auto& [type, count] : share.missing)
        json.Member(type, count);
    json.Close('}').Name("otherwise").Open('{');
    for (std::size_t i = 0; i < kOtherwiseCount; ++i)
        if (share.otherwise[i] > 0)
            json.Member(kOtherwiseRows[i].name, share.otherwise[i]);
    json.Close('}').Close('}');
}

} // namespace plexorn
