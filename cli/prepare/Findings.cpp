#include "cli/prepare/Findings.h"

#include <algorithm>
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
            share.changed[key.subject + " " + key.detail] += met.count;
        }
    }
    share.entities = std::max(findings.entities, missing);
    share.shown = share.entities - missing;
    return share;
}

void TellFindings(const prepare::Report& findings, Report& report)
{
    for (const auto& [key, met] : findings.Entries())
        if (key.finding != Finding::Rewritten)
            report.Finding(MessageText(key), met.firstLine, met.count);
}

} // namespace plexorn
