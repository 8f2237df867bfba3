#include "cli/draw/WriteOptions.h"

#include "base/Numbers.h"
#include "cli/files/OlderPicture.h"

namespace plexorn {

SvgHostWriteOptions WriteOptionsFor(const Options& options, const Look& look, const Sizing& sizing,
                                    const prepare::LayoutSize& sheet)
{
    SvgHostWriteOptions chosen = {};
    chosen.background = look.background ? look.background->c_str() : nullptr;
    chosen.style = look.style.empty() ? nullptr : look.style.c_str();
    chosen.unit = sizing.unit ? sizing.unit->millimetres : 0;
    chosen.generator = options.isAsIs ? nullptr : kGenerator;
    chosen.groupsLayers = options.layersAs == "inkscape";
    chosen.sharesDashPatterns = !options.isAsIs;
    chosen.showsMost = options.fit == "most";
    if (!options.scale.empty())
        chosen.scale = ParseReal(std::string_view(options.scale).substr(kScaleStart.size()));
    else
        chosen.usesStandardScale = !options.isAsIs && !options.hasTrueSize && sheet.width == 0;
    if (sheet.width > 0)
        chosen.frame = {0, -sheet.height, sheet.width, sheet.height, false};
    return chosen;
}

} // namespace plexorn
