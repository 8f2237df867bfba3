// How the host is to write a picture.
#pragma once

#include "cli/contents/Units.h"
#include "cli/draw/Look.h"
#include "cli/options/Options.h"
#include "svghost/SvgHost.h"

namespace plexorn {

// What options ask for. The result refers to texts in look.
SvgHostWriteOptions WriteOptionsFor(const Options& options, const Look& look, const Sizing& sizing);

} // namespace plexorn
