#include "cli/report/ReportStyle.h"

#include <cstdlib>

namespace plexorn {

ReportStyle StyleFor(const Options& options, bool isTerminal)
{
    const char* noColour = std::getenv("NO_COLOR");
    ReportStyle style;
    style.isJson = options.messageFormat == "json";
    style.isQuiet = options.isQuiet;
    style.isStrict = options.isStrict;
    style.isVerbose = options.isVerbose;
    style.isColoured = !style.isJson && !(noColour && *noColour) && isTerminal;
    style.maxMessages = options.maxMessages;
    return style;
}

} // namespace plexorn
