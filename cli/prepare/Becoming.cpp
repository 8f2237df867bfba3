#include "cli/prepare/Becoming.h"

#include "cli/prepare/Findings.h"
#include "cli/prepare/PrepareOptionsFor.h"
#include "cli/prepare/RewoundFile.h"
#include "prepare/drawing/Encoding.h"

namespace plexorn {

namespace {

using prepare::Finding;

void AddCounted(std::string& text, const std::map<std::string, std::uint64_t>& counts,
                std::string_view between)
{
    for (const auto& [what, count] : counts)
        text.append(text.empty() ? "" : "; ").append(std::to_string(count)).append(between).append(what);
}

std::string RepairText(const prepare::Report::Key& key, const Tally& met)
{
    std::string text = "line " + std::to_string(met.firstLine);
    text.append(": ").append(key.subject).append(": ").append(key.detail);
    return met.count > 1 ? text + " (" + std::to_string(met.count) + " times)" : text;
}

void Add(const prepare::Report::Key& key, const Tally& met, Becoming& becoming)
{
    switch (key.finding) {
    case Finding::Rewritten:
        becoming.types[key.subject].into = key.detail;
        break;
    case Finding::NotShown:
        becoming.types[key.subject].notShown[key.detail] += met.count;
        break;
    case Finding::Changed:
    case Finding::Cut:
        becoming.types[key.subject].changed[key.detail] += met.count;
        break;
    case Finding::Repaired:
        becoming.repairs.push_back(RepairText(key, met));
        break;
    }
}

Named<TypeInfo> TypesOf(const prepare::Contents& contents)
{
    Named<TypeInfo> types;
    for (const prepare::TypeContents& type : contents.types)
        types[type.name] = {type.name, type.inDrawing, type.inBlocks, type.firstLine};
    return types;
}

} // namespace

std::string TypeBecoming::Text() const
{
    std::string text = into.empty() ? "" : "drawn as " + into;
    AddCounted(text, notShown, " not shown: ");
    AddCounted(text, changed, " changed: ");
    return text;
}

Becoming BecomingOf(Source& source, const Options& options)
{
    RewoundFile input(source);
    prepare::Report findings;
    const auto discard = [](std::string_view) { return true; };
    const prepare::PrepareOutcome outcome =
        prepare::PrepareDrawing(input, PrepareOptionsFor(options), discard, findings, {});
    if (outcome == prepare::PrepareOutcome::ReadFailed)
        input.ThrowFailure();
    Becoming becoming;
    becoming.share = ShareOf(findings);
    becoming.held = TypesOf(findings.contents);
    for (const auto& [key, met] : findings.Entries())
        Add(key, met, becoming);
    becoming.sheets = std::move(findings.layouts);
    becoming.codePage = prepare::NumberedCodePage(findings.contents.codePage);
    return becoming;
}

} // namespace plexorn
