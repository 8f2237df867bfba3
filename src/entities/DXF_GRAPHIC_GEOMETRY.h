// Lines, arcs, circles, ellipses and polylines. Lengths in drawing units, angles as noted.
#pragma once

#include "base/DXF_LIST.h"
#include "entities/DXF_GRAPHIC_BASE.h"
#include "entities/DXF_POINT2D.h"

#include <cstdint>

struct DXF_GRAPHIC_LINE : DXF_GRAPHIC_BASE {
    DXF_GRAPHIC_LINE() : DXF_GRAPHIC_BASE(DXF_ENTITY_LINE) {}

    double m_dStartX = 0.0, m_dStartY = 0.0, m_dStartZ = 0.0; // 10, 20, 30
    double m_dEndX = 0.0, m_dEndY = 0.0, m_dEndZ = 0.0;       // 11, 21, 31
};

struct DXF_GRAPHIC_ARC : DXF_GRAPHIC_BASE {
    DXF_GRAPHIC_ARC() : DXF_GRAPHIC_BASE(DXF_ENTITY_ARC) {}

    double m_dCenterX = 0.0, m_dCenterY = 0.0, m_dCenterZ = 0.0; // 10, 20, 30
    double m_dRadius = 0.0;                                      // 40
    double m_dStartAngle = 0.0;                                  // 50, degrees counter-clockwise
    double m_dEndAngle = 0.0;                                    // 51
};

struct DXF_GRAPHIC_CIRCLE : DXF_GRAPHIC_BASE {
    DXF_GRAPHIC_CIRCLE() : DXF_GRAPHIC_BASE(DXF_ENTITY_CIRCLE) {}

    double m_dCenterX = 0.0, m_dCenterY = 0.0, m_dCenterZ = 0.0; // 10, 20, 30
    double m_dRadius = 0.0;                                      // 40
};

struct DXF_GRAPHIC_ELLIPSE : DXF_GRAPHIC_BASE {
    DXF_GRAPHIC_ELLIPSE() : DXF_GRAPHIC_BASE(DXF_ENTITY_ELLIPSE) {}

    double m_dCenterX = 0.0, m_dCenterY = 0.0, m_dCenterZ = 0.0;          // 10, 20, 30
    double m_dMajorAxisX = 0.0, m_dMajorAxisY = 0.0, m_dMajorAxisZ = 0.0; // 11, 21, 31, from the centre
    double m_dRatio = 0.0;                                                // 40, minor to major axis
    double m_dStartParam = 0.0;                                           // 41, radians
    double m_dEndParam = 0.0;                                             // 42
};

// The vertices carry positions only. What the file gives for each vertex besides (40, 41, 42, 91) is kept
// once, as last read, and 40, 41 and 42 are read as integers: a bulge of 0.4142 becomes 0. So segments are
// straight (quirk 56).
struct DXF_GRAPHIC_LWPOLYLINE : DXF_GRAPHIC_BASE {
    DXF_GRAPHIC_LWPOLYLINE() : DXF_GRAPHIC_BASE(DXF_ENTITY_LWPOLYLINE) {}

    std::int32_t m_nVertexCount = 0;  // 90, as the file states it
    std::int32_t m_nFlags = 0;        // 70, bit 1 closed
    double m_dConstantWidth = 0.0;    // 43
    double m_dElevation = 0.0;        // 38
    DXF_LIST<DXF_POINT2D> m_vertices; // 10, 20
    std::int32_t m_nVertexId = 0;     // 91
    std::int32_t m_nStartWidth = 0;   // 40
    std::int32_t m_nEndWidth = 0;     // 41
    std::int32_t m_nBulge = 0;        // 42
};
