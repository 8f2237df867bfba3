#include "prepare/plain/HatchDashes.h"

#include <algorithm>
#include <cmath>

namespace prepare {

namespace {

// No program writes more, and they bound what a line can cost.
constexpr std::size_t kMostOfLine = 64;

// A dot takes its length from the gap after it, but never more than half of that.
void LengthenDots(std::vector<double>& dashes, double dot)
{
    for (std::size_t i = 0; i < dashes.size(); ++i) {
        double& next = dashes[i + 1 < dashes.size() ? i + 1 : 0];
        if (dashes[i] != 0 || !(next < 0))
            continue;
        dashes[i] = std::min(dot, -next / 2);
        next += dashes[i];
    }
}

void Append(std::vector<double>& lengths, double length)
{
    if (length == 0)
        return;
    if (!lengths.empty() && (lengths.back() > 0) == (length > 0))
        lengths.back() += length;
    else
        lengths.push_back(length);
}

} // namespace

HatchDashes::HatchDashes(std::span<const double> dashes, double dot)
{
    const auto isFinite = [](double length) { return std::isfinite(length); };
    if (dashes.size() > kMostOfLine || !std::all_of(dashes.begin(), dashes.end(), isFinite))
        return;
    std::vector<double> all(dashes.begin(), dashes.end());
    LengthenDots(all, dot);
    for (const double length : all)
        Append(lengths, length);
    if (lengths.size() < 2) { // all are dashes, or all are gaps
        lengths.clear();
        return;
    }
    if (lengths.front() < 0) {
        const double gap = lengths.front();
        origin = -gap;
        lengths.erase(lengths.begin());
        Append(lengths, gap);
    } else if (lengths.back() > 0) {
        origin = -lengths.back();
        lengths.front() += lengths.back();
        lengths.pop_back();
    }
    for (const double length : lengths)
        period += std::fabs(length);
}

} // namespace prepare
