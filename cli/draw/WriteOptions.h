// How the host is to write a picture.
#pragma once

#include "cli/contents/Units.h"
#include "cli/draw/Look.h"
#include "cli/options/Options.h"
#include "svghost/SvgHost.h"

namespace plexorn {

// The longer side, in millimetres, of the sheet A3. Widths of strokes are taken for those on a sheet of that
// size, which is about as large as a screen.
inline constexpr double kSheet = 420;

// What options ask for. The result refers to texts in look.
SvgHostWriteOptions WriteOptionsFor(const Options& options, const Look& look, const Sizing& sizing);

} // namespace plexorn
