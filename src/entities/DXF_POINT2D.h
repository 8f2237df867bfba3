// A point of the drawing plane.
#pragma once

struct DXF_POINT2D {
    double x = 0.0;
    double y = 0.0;
};
