// The parts of dimensions by their points.
#pragma once

#include "support/Dimensions.h"

#include <cstdint>
#include <string>
#include <string_view>

// The drawing of a dimension in some Y mode.
inline std::string Drawn(const std::string& parts, std::int32_t yAxisMode, double scale = 1.0)
{
    return TraceOf(DimensionDrawing(parts), [&](CDxfReadToQuillmar& converter) {
        converter.yAxisMode = yAxisMode;
        converter.scale = scale;
    });
}

// D and the text's middle T.
inline std::string Dimension(std::string_view dx, std::string_view dy, std::string_view tx,
                             std::string_view ty)
{
    return Part("AcDbDimension", {{10, dx}, {20, dy}, {30, 9}, {11, tx}, {21, ty}, {31, 9}});
}

inline std::string Aligned(std::string_view x1, std::string_view y1, std::string_view x2, std::string_view y2,
                           std::string_view rotation = "0")
{
    return Part("AcDbAlignedDimension",
                {{13, x1}, {23, y1}, {33, 9}, {14, x2}, {24, y2}, {34, 9}, {50, rotation}});
}

inline std::string Rotated(std::string_view x1, std::string_view y1, std::string_view x2, std::string_view y2,
                           std::string_view rotation)
{
    return Aligned(x1, y1, x2, y2, rotation) + Part("AcDbRotatedDimension");
}

inline std::string Radial(std::string_view x, std::string_view y)
{
    return Part("AcDbRadialDimension", {{15, x}, {25, y}, {35, 9}, {40, 7}});
}

inline std::string Diametric(std::string_view x, std::string_view y)
{
    return Part("AcDbDiametricDimension", {{15, x}, {25, y}, {35, 9}, {40, 7}});
}

inline constexpr int kUp = 1;   // the Y mode that leaves Y as it is and orders angles from the smaller
inline constexpr int kDown = 2; // the Y mode that negates Y
