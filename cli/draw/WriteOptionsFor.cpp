#include "cli/draw/WriteOptionsFor.h"

#include "base/Numbers.h"
#include "cli/files/Marks.h"

namespace plexorn {

namespace {

// Preparing breaks lines and fits columns with widths of letters that all of these fonts nearly have. The
// sans-serif of many systems is a tenth wider, so texts would leave their frames.
constexpr const char* kFonts = "Arial, 'Liberation Sans', 'Nimbus Sans', 'DejaVu Sans Condensed', sans-serif";

} // namespace

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
    chosen.fontFamily = options.isAsIs ? nullptr : kFonts;
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
