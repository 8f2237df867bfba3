// How the host is to write a picture.
#pragma once

#include "cli/contents/Units.h"
#include "cli/draw/Look.h"
#include "cli/options/Options.h"
#include "prepare/report/Report.h"
#include "svghost/SvgHost.h"

namespace plexorn {

// What options ask for. The result refers to texts in look. sheet is what was prepared; without a size, all
// that is drawn is framed.
SvgHostWriteOptions WriteOptionsFor(const Options& options, const Look& look, const Sizing& sizing,
                                    const prepare::LayoutSize& sheet);

} // namespace plexorn
