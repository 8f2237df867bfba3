#include "cli/prepare/Findings.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace plexorn {

namespace {

using prepare::Finding;

std::string MessageText(const prepare::Report::Key& key)
{
    switch (key.finding) {
    case Finding::NotShown:
        return key.subject + " is not shown: " + key.detail;
    case Finding::Cut:
        return key.subject + " is not shown whole: " + key.detail;
    default:
        return key.subject + ": " + key.detail;
    }
}

// What is shown as it is, if in other words, is not worth a message.
void Tell(const prepare::Report::Key& key, std::uint64_t line, std::uint64_t count, Report& report)
{
    if (key.finding != Finding::Rewritten)
        report.Finding(MessageText(key), line, count);
}

// As a part of a list of what is shown differently.
std::string HowChanged(const prepare::Report::Key& key)
{
    return key.finding == Finding::Cut ? key.subject + " not whole (" + key.detail + ")"
                                       : key.subject + " " + key.detail;
}

} // namespace

Share ShareOf(const prepare::Report& findings)
{
    Share share;
    std::uint64_t missing = 0;
    for (const auto& [key, met] : findings.Entries()) {
        if (key.finding == Finding::NotShown) {
            share.missing[key.subject] += met.count;
            missing += met.count;
        } else if (key.finding == Finding::Changed || key.finding == Finding::Cut) {
            share.changed[HowChanged(key)] += met.count;
            share.isCut = share.isCut || key.finding == Finding::Cut;
        }
    }
    // A part of an entity may be missing, too.
    share.entities = std::max(findings.entities, missing);
    share.shown = share.entities - missing;
    for (std::size_t why = 0; why < prepare::kHiddenLayers; ++why)
        share.hidden[why] = findings.hidden[why];
    share.hidden[static_cast<std::size_t>(Hidden::InViewportsOff)] = findings.viewportsOff;
    if (findings.sheet.name.empty())
        share.otherwise[static_cast<std::size_t>(Difference::NoSheets)] = findings.contents.onSheets;
    return share;
}

void ListFindings(prepare::Report& findings, Report& report)
{
    if (!report.ListsMessages())
        return;
    findings.TellTo([&report](const prepare::Report::Key& key, std::uint64_t line, std::uint64_t count) {
        Tell(key, line, count, report);
    });
}

void TellFindings(const prepare::Report& findings, Report& report)
{
    if (report.ListsMessages())
        return;
    for (const auto& [key, met] : findings.Entries())
        Tell(key, met.firstLine, met.count, report);
}

} // namespace plexorn
