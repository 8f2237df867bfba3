// What the picture shows of the plane, how large it is, and how wide its strokes are.
#pragma once

#include "svghost/PictureLayout.h"
#include "svghost/SvgHost.h"

namespace svghost {

// A stroke is never thinner than this part of the picture's longer side: half a pixel where that side is 900
// pixels high.
inline constexpr double kThinnestStroke = 1.0 / 1750;

struct Picture {
    ViewBox viewBox;
    double width = 0; // in millimetres; 0: the size is in pixels
    double height = 0;
    double scale = 0;       // the N of 1:N, 0 in pixels
    double filled = 1;      // the share of the longer side of all that is drawn that most of it takes
    bool isCropped = false; // whether something lies outside
    // Drawing units for a millimetre of the sheet that strokes are of; 0: their widths are lengths.
    double sheetUnit = 0;

    // The width with which a stroke is shown that is given with this one.
    double ShownWidth(double given) const;
};

// The document has been laid out. Whether anything lies far off is looked up only when options or
// wantsFilled need it.
Picture PictureOf(const SvgHostDocument& document, const PictureLayout& layout,
                  const SvgHostWriteOptions& options, bool wantsFilled);

} // namespace svghost
