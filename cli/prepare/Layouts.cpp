#include "cli/prepare/Layouts.h"

#include "cli/prepare/RewoundFile.h"
#include "prepare/Layouts.h"

#include <system_error>

namespace plexorn {

std::vector<std::string> LayoutsOf(Source& source, const Options& options)
{
    RewoundFile input(source);
    std::vector<prepare::LayoutSize> layouts;
    const prepare::PrepareOutcome outcome = prepare::ListLayouts(input, options.encoding, layouts);
    if (outcome == prepare::PrepareOutcome::ReadFailed)
        input.ThrowFailure();
    std::vector<std::string> names;
    names.reserve(layouts.size());
    for (const prepare::LayoutSize& layout : layouts)
        names.push_back(layout.name);
    return names;
}

std::vector<std::string> LayoutsIn(const std::string& drawing, const Options& options)
{
    try {
        Source source(drawing, Forms::All);
        return source.Reason().empty() ? LayoutsOf(source, options) : std::vector<std::string>();
    } catch (const std::system_error&) {
        return {}; // Drawing it reports the reason.
    }
}

std::string WhyNoLayout(const std::string& wanted, const prepare::Report& findings)
{
    if (findings.layouts.empty())
        return "has no layouts";
    std::string text = "has no layout '" + wanted + "', but ";
    for (const prepare::LayoutSize& layout : findings.layouts)
        text.append(&layout == &findings.layouts.front() ? "'" : ", '").append(layout.name).append("'");
    return text;
}

} // namespace plexorn
