// Findings that wait until it is known whether they count.
#pragma once

#include "prepare/report/Report.h"

#include <cstdint>
#include <vector>

namespace prepare {

// Keeps findings one by one, so that they can be reported as if they came only then.
class WaitingFindings {
public:
    WaitingFindings();
    WaitingFindings(const WaitingFindings&) = delete;
    WaitingFindings& operator=(const WaitingFindings&) = delete;

    // Takes them.
    Report& Taken() { return m_taken; }
    // From now on none wait, and those that did are forgotten.
    void Leave();
    // Adds those that wait to a report, in their order, and what was counted.
    void GiveTo(Report& report) const;

private:
    struct Found {
        const Report::Key* key; // in m_taken
        std::uint64_t line;
        std::uint64_t count;
    };

    Report m_taken;
    std::vector<Found> m_waiting;
};

} // namespace prepare
