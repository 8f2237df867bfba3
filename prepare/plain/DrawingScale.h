// What an entity may need to know of the whole drawing.
#pragma once

#include "prepare/plain/Box.h"

namespace prepare {

// In the output's units. Notes whether anybody asked: while a drawing is being measured nothing of this is
// known, and what was drawn without asking is drawn as it stays.
class DrawingScale {
public:
    DrawingScale(double tolerance, const Box& reach, double pointSize)
        : m_tolerance(tolerance), m_reach(reach), m_pointSize(pointSize)
    {
    }

    // Of flattened curves while there is room; above 0.
    double Tolerance() const { return Asked(m_tolerance); }
    // Rays are cut here; empty while that is not known, and then they are left out.
    const Box& Reach() const { return Asked(m_reach); }
    // Half the size of a POINT's mark.
    double PointSize() const { return Asked(m_pointSize); }

    // From now on points have that size.
    void UsePointSize(double size) { m_pointSize = size; }

    bool WasAsked() const { return m_wasAsked; }

private:
    template <class Value>
    const Value& Asked(const Value& value) const
    {
        m_wasAsked = true;
        // Members of this object.
        return value; // NOLINT(bugprone-return-const-ref-from-parameter)
    }

    double m_tolerance;
    Box m_reach;
    double m_pointSize;
    mutable bool m_wasAsked = false;
};

} // namespace prepare
