#include "prepare/write/ModuleDashes.h"

#include "base/Numbers.h"

#include <algorithm>
#include <cmath>

namespace prepare {

namespace {

// Whether next to nothing is seen of such a line but its shapes, which are not drawn.
bool IsNearlyAllShapes(const LineType& lineType)
{
    constexpr double kLeastShare = 0.25;
    double drawn = 0, whole = 0;
    for (const double length : lineType.dashes) {
        drawn += std::max(length, 0.0);
        whole += std::fabs(length);
    }
    return lineType.hasShapes && drawn < kLeastShare * whole;
}

// A pattern's lengths as dash, gap, dash, gap: neighbours of one kind are one, and so are the last and the
// first.
std::vector<double> Alternating(const std::vector<double>& dashes, double scale, double dot)
{
    std::vector<double> result;
    double leadingGap = 0;
    for (const double length : dashes) {
        const bool isGap = length < 0;
        const double drawn = length == 0 ? dot : std::fabs(length) * scale;
        if (result.empty() && isGap)
            leadingGap += drawn;
        else if (result.size() % 2 == (isGap ? 1 : 0))
            result.push_back(drawn);
        else
            result.back() += drawn;
    }
    if (result.size() % 2 == 1 && (leadingGap > 0 || result.size() == 1)) {
        result.push_back(leadingGap);
    } else if (result.size() % 2 == 1) {
        result.front() += result.back();
        result.pop_back();
    } else if (!result.empty()) {
        result.back() += leadingGap;
    }
    return result;
}

// Cuts a pattern to what a host can be asked to draw, at a gap.
void Limit(std::vector<double>& pattern, std::size_t mostLengths)
{
    constexpr std::size_t kMostCharacters = 500; // hosts draw longer ones as solid lines
    std::size_t characters = 0;
    std::size_t count = 0;
    while (count + 1 < std::min(pattern.size(), mostLengths)) {
        characters += RoomForFixed6(pattern[count]) + RoomForFixed6(pattern[count + 1]) + 2;
        if (characters > kMostCharacters)
            break;
        count += 2;
    }
    pattern.resize(count);
}

} // namespace

std::vector<double> DashesForModule(const LineType& lineType, double scale, double width,
                                    std::size_t mostLengths)
{
    constexpr double kFarShorter = 4; // a pattern so much shorter than the stroke is wide only blurs
    if (!std::isfinite(scale) || !(scale > 0) || IsNearlyAllShapes(lineType))
        return {};
    std::vector<double> pattern = Alternating(lineType.dashes, scale, width);
    Limit(pattern, mostLengths);
    double dashes = 0, gaps = 0;
    for (std::size_t i = 0; i < pattern.size(); ++i)
        (i % 2 == 0 ? dashes : gaps) += pattern[i];
    if (!std::isfinite(dashes + gaps) || !(gaps > 0) || (dashes + gaps) * kFarShorter < width)
        return {};
    return pattern;
}

} // namespace prepare
