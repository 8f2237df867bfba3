// The paper of a layout.
#pragma once

#include "prepare/drawing/Drawing.h"
#include "prepare/plain/Matrix.h"
#include "prepare/plain/Placement.h"

namespace prepare {

// Where a layout's paper space is on its paper. Of a layout without a paper size nothing is known but the
// paper space itself.
struct Sheet {
    Matrix matrix;     // from the paper space to the output's plane
    double scale = 1;  // of that: millimetres in a unit of the paper space, where the paper is known
    double width = 0;  // of the paper as it is seen, in millimetres; 0: not known
    double height = 0; // its lower left corner is the output's origin

    bool HasPaper() const { return width > 0; }
    // Empty without a paper.
    Box Paper() const;
};

Sheet SheetOf(const Layout& layout);

// Says which entities are those of a layout. Both must outlive it.
class LayoutMembers {
public:
    LayoutMembers(const Drawing& drawing, const Layout& layout) : m_drawing(drawing), m_layout(layout) {}

    bool Has(const Entity& entity) const;

private:
    const Drawing& m_drawing;
    const Layout& m_layout;
};

// The layout of that name (upper and lower case are the same); null if there is none.
const Layout* FindLayout(const Drawing& drawing, std::string_view name);

} // namespace prepare
