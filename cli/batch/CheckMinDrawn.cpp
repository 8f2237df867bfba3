#include "cli/batch/CheckMinDrawn.h"

#include "cli/options/PercentageOf.h"
#include "cli/report/ShareText.h"

#include <optional>

namespace plexorn {

void CheckMinDrawn(const Share& share, const Options& options, Report& report)
{
    const std::optional<double> least = PercentageOf(options.minDrawn);
    if (least && share.Percent() < *least)
        report.Doubtful(ShareText(share) + ", less than " + options.minDrawn + " (--min-drawn)",
                        ExitCode::Incomplete);
}

} // namespace plexorn
