#include "cli/draw/Look.h"

namespace plexorn {

namespace {

constexpr const char* kDark = "#1e1e1e";
constexpr const char* kWhite = "white";

// Style sheets count for more than the attributes that the elements have. The rectangle of the background has
// a fill as well; it is neither a text nor the path of an arrow.
constexpr const char* kPaperStyle = "[stroke=\"#ffffff\"]{stroke:#000000}"
                                    "text[fill=\"#ffffff\"],path[fill=\"#ffffff\"]{fill:#000000}";
// Prepared drawings have texts of several runs, each with its colour.
constexpr const char* kPaperRunStyle = "tspan[fill=\"#ffffff\"]{fill:#000000}";

// This is not inherited, so each kind of element that has a stroke gets it.
constexpr const char* kHairlineStyle =
    "line,path,circle,ellipse,polyline,polygon{vector-effect:non-scaling-stroke";
// Widths of a prepared drawing are lengths of the drawing and mean nothing in pixels.
constexpr const char* kOnePixel = ";stroke-width:1px";

} // namespace

Look LookFor(const Options& options)
{
    Look look;
    const bool isPaper = options.isOnPaper || !options.layout.empty(); // a sheet is shown as one
    look.background = options.background;
    if (options.background.empty())
        look.background = isPaper ? kWhite : kDark;
    else if (options.background == "none")
        look.background.reset();
    if (isPaper)
        look.style.append(kPaperStyle).append(options.isAsIs ? "" : kPaperRunStyle);
    if (options.hasHairlines)
        look.style.append(kHairlineStyle).append(options.isAsIs ? "" : kOnePixel).append("}");
    return look;
}

} // namespace plexorn
