// The size of a picture on paper.
#pragma once

namespace svghost {

// The largest sheet, A0, in millimetres.
inline constexpr double kLongestSheet = 1189;
inline constexpr double kWidestSheet = 841;

// The N of the first standard scale 1:N at which a drawing of that true size fits the largest sheet, either
// way round: 1, 2, 5, 10, 20, 25, 50, 100, 200, 250, 500 and so on. The size is in millimetres and finite.
double StandardScale(double width, double height);

} // namespace svghost
