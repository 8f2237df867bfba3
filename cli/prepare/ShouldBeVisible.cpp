#include "cli/prepare/ShouldBeVisible.h"

namespace plexorn {

bool ShouldBeVisible(const DrawingInfo& info)
{
    return info.types.Count() > 0 || !info.isEnded || info.oddLines > 0;
}

bool ShouldBeVisible(const prepare::Report& findings)
{
    const prepare::Contents& contents = findings.contents;
    return contents.entities > 0 || !contents.isEnded || contents.hasSkippedLines;
}

} // namespace plexorn
