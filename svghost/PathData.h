// The texts of paths, polylines and polygons.
#ifndef SVGHOST_PATHDATA_H
#define SVGHOST_PATHDATA_H

#include "svghost/Geometry.h"

#include <string>

namespace svghost {

// Reads points ("x,y" pairs) and appends them to out in short form, adding each to box. False when a number
// is not drawable or the text is anything else than whole pairs; an empty text is good.
bool scanPoints(const wchar_t* text, std::string& out, Box& box);

// Reads path data made of absolute move-to, line-to, elliptical-arc and close commands, appends it to out in
// short form and adds its picture under map to box. False when a number is not drawable or for any other
// text; an empty one is good. Char is char or wchar_t.
template <class Char>
bool scanPath(const Char* text, const Affine& map, std::string& out, Box& box);

} // namespace svghost

#endif
