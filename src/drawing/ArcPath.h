// Path data of an elliptical arc.
#pragma once

#include "drawing/CDxfText.h"
#include "entities/DXF_POINT2D.h"

// The flags of an arc as path data writes them, large-arc flag first.
inline const wchar_t* ArcFlags(bool isLarge, bool sweeps)
{
    if (isLarge)
        return sweeps ? L"1,1" : L"1,0";
    return sweeps ? L"0,1" : L"0,0";
}

// "M %f,%f A %f,%f, 0 %s %f,%f": the x-axis rotation is always 0.
class CDxfArcPath : public CDxfText<6 * kLongestNumber + sizeof("M , A ,, 0 1,1 ,")> {
public:
    CDxfArcPath(const DXF_POINT2D& start, double radiusX, double radiusY, const wchar_t* flags,
                const DXF_POINT2D& end)
    {
        Add(L"M ").AddFixed6(start.x).Add(L",").AddFixed6(start.y);
        Add(L" A ").AddFixed6(radiusX).Add(L",").AddFixed6(radiusY).Add(L", 0 ").Add(flags);
        Add(L" ").AddFixed6(end.x).Add(L",").AddFixed6(end.y);
    }
};
