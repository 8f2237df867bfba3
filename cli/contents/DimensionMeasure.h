// The number that a dimension shows, and the one that its file states.
#pragma once

#include "entities/DXF_POINT2D.h"

#include <cstddef>
#include <string_view>

namespace plexorn {

// Takes a DIMENSION's pairs one by one. It computes what the module shows, by the module's own functions.
class DimensionMeasure {
public:
    void Take(int code, std::string_view value);

    // Whether the module draws it at all.
    bool IsDrawn() const;
    // Whether it shows a number that differs from the measurement that the file states (group 42). False when
    // the file states no measurement, or the dimension has a text of its own.
    bool ShowsOtherNumber() const;

private:
    enum class Part { None, Dimension, Aligned, Rotated, Radial, Diametric, Angular, Other };

    void TakePart(std::string_view name);
    void TakeNumber(int code, double number);
    DXF_POINT2D Point(std::size_t number) const;
    double Linear() const;
    double Angle() const;

    bool m_hasDimension = false;
    bool m_hasAligned = false;
    Part m_last = Part::None;
    Part m_always = Part::None; // one that is drawn whatever follows it
    bool m_hasOwnText = false;
    double m_stated = 0;
    double m_rotation = 0;
    DXF_POINT2D m_points[7]; // of the codes 10 to 16
};

} // namespace plexorn
