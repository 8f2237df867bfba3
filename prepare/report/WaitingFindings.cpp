#include "prepare/report/WaitingFindings.h"

namespace prepare {

WaitingFindings::WaitingFindings()
{
    m_taken.TellTo([this](const Report::Key& key, std::uint64_t line, std::uint64_t count) {
        m_waiting.push_back({&key, line, count});
    });
}

void WaitingFindings::Leave()
{
    m_taken.TellTo({});
    m_waiting = {};
}

void WaitingFindings::GiveTo(Report& report) const
{
    for (const Found& found : m_waiting) {
        report.BeginEntity();
        report.Add(found.key->finding, found.key->subject, found.key->detail, found.line, found.count);
    }
    report.entities += m_taken.entities;
    report.isBlank = report.isBlank || m_taken.isBlank;
    for (std::size_t why = 0; why < kHiddenLayers; ++why)
        report.hidden[why] += m_taken.hidden[why];
}

} // namespace prepare
