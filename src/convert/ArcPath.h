// Path data of an elliptical arc.
#pragma once

#include "convert/CDxfText.h"
#include "entities/DXF_POINT2D.h"

// The values of an arc in a path; the x-axis rotation is always 0.
struct DXF_ARC_PATH {
    DXF_POINT2D start;
    double radiusX;
    double radiusY;
    bool isLarge;
    bool isFlipped; // Y points down: the sweep turns round
    DXF_POINT2D end;
};

// "M %f,%f A %f,%f, 0 %s %f,%f"
inline auto FormatArcPath(const DXF_ARC_PATH& arc)
{
    const wchar_t* const flags =
        arc.isFlipped ? (arc.isLarge ? L"1,0" : L"0,0") : (arc.isLarge ? L"1,1" : L"0,1");
    CDxfText<6 * kLongestNumber + sizeof("M , A ,, 0 1,1 ,")> data;
    data.Add(L"M ").AddFixed6(arc.start.x).Add(L",").AddFixed6(arc.start.y);
    data.Add(L" A ").AddFixed6(arc.radiusX).Add(L",").AddFixed6(arc.radiusY).Add(L", 0 ").Add(flags);
    data.Add(L" ").AddFixed6(arc.end.x).Add(L",").AddFixed6(arc.end.y);
    return data;
}
