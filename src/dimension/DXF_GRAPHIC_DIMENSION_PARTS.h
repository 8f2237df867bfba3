// The subclass parts of a dimension. Points in drawing units.
#pragma once

#include "base/DXF_STRING.h"

#include <cstdint>

// What a part is. The numbers are kept as they are: the two-line angular part is out of sequence.
enum DXF_DIMENSION_PART_KIND : std::int32_t {
    DXF_DIMENSION_PART_ENTITY = 1,
    DXF_DIMENSION_PART_DIMENSION = 2,
    DXF_DIMENSION_PART_ALIGNED = 3,
    DXF_DIMENSION_PART_3POINT_ANGULAR = 4,
    DXF_DIMENSION_PART_ROTATED = 5,
    DXF_DIMENSION_PART_ORDINATE = 6,
    DXF_DIMENSION_PART_RADIAL = 7,
    DXF_DIMENSION_PART_DIAMETRIC = 8,
    DXF_DIMENSION_PART_2LINE_ANGULAR = 9,
};

struct DXF_GRAPHIC_DIMENSION_BASE {
    explicit DXF_GRAPHIC_DIMENSION_BASE(DXF_DIMENSION_PART_KIND kind) : m_nPartKind(kind) {}
    virtual ~DXF_GRAPHIC_DIMENSION_BASE() = default;

    std::int32_t m_nPartKind; // a DXF_DIMENSION_PART_KIND
};

// "AcDbEntity"
struct DXF_GRAPHIC_DIMENSION_Entity : DXF_GRAPHIC_DIMENSION_BASE {
    DXF_GRAPHIC_DIMENSION_Entity() : DXF_GRAPHIC_DIMENSION_BASE(DXF_DIMENSION_PART_ENTITY) {}
};

// "AcDbDimension"
struct DXF_GRAPHIC_DIMENSION_Dimension : DXF_GRAPHIC_DIMENSION_BASE {
    DXF_GRAPHIC_DIMENSION_Dimension() : DXF_GRAPHIC_DIMENSION_BASE(DXF_DIMENSION_PART_DIMENSION) {}

    DXF_STRING m_strBlockName;                                            // 2
    double m_dDefPointX = 0.0, m_dDefPointY = 0.0, m_dDefPointZ = 0.0;    // 10, 20, 30
    double m_dTextMidX = 0.0, m_dTextMidY = 0.0, m_dTextMidZ = 0.0;       // 11, 21, 31
    std::int32_t m_nDimType = 0;                                          // 70
    std::int32_t m_nAttachment = -1;                                      // 71
    double m_dLineSpacing = 0.0;                                          // 41
    double m_dMeasurement = 0.0;                                          // 42
    DXF_STRING m_strText;                                                 // 1, empty for the measured value
    double m_dTextRotation = 0.0;                                         // 53, degrees
    double m_dHorizontalDir = 0.0;                                        // 51
    double m_dExtrusionX = 0.0, m_dExtrusionY = 0.0, m_dExtrusionZ = 1.0; // 210, 220, 230
    DXF_STRING m_strStyle;                                                // 3
};

// "AcDbAlignedDimension"
struct DXF_GRAPHIC_DIMENSION_AlignedDimension : DXF_GRAPHIC_DIMENSION_BASE {
    DXF_GRAPHIC_DIMENSION_AlignedDimension() : DXF_GRAPHIC_DIMENSION_BASE(DXF_DIMENSION_PART_ALIGNED) {}

    double m_dClonePointX = 0.0, m_dClonePointY = 0.0, m_dClonePointZ = 0.0; // 12, 22, 32
    double m_dExtLine1X = 0.0, m_dExtLine1Y = 0.0, m_dExtLine1Z = 0.0;       // 13, 23, 33
    double m_dExtLine2X = 0.0, m_dExtLine2Y = 0.0, m_dExtLine2Z = 0.0;       // 14, 24, 34
    double m_dRotation = 0.0;                                                // 50, degrees
    double m_dOblique = 0.0;                                                 // 52, degrees
};

// The fields of both angular parts.
struct DXF_GRAPHIC_DIMENSION_ANGULAR : DXF_GRAPHIC_DIMENSION_BASE {
    using DXF_GRAPHIC_DIMENSION_BASE::DXF_GRAPHIC_DIMENSION_BASE;

    double m_dExtLine1X = 0.0, m_dExtLine1Y = 0.0, m_dExtLine1Z = 0.0; // 13, 23, 33
    double m_dExtLine2X = 0.0, m_dExtLine2Y = 0.0, m_dExtLine2Z = 0.0; // 14, 24, 34
    double m_dArcPointX = 0.0, m_dArcPointY = 0.0, m_dArcPointZ = 0.0; // 15, 25, 35
    double m_dDimArcX = 0.0, m_dDimArcY = 0.0, m_dDimArcZ = 0.0;       // 16, 26, 36
};

// "AcDb3PointAngularDimension"
struct DXF_GRAPHIC_DIMENSION_3PointAngularDimension : DXF_GRAPHIC_DIMENSION_ANGULAR {
    DXF_GRAPHIC_DIMENSION_3PointAngularDimension()
        : DXF_GRAPHIC_DIMENSION_ANGULAR(DXF_DIMENSION_PART_3POINT_ANGULAR)
    {
    }
};

// "AcDb2LineAngularDimension"
struct DXF_GRAPHIC_DIMENSION_2LineAngularDimension : DXF_GRAPHIC_DIMENSION_ANGULAR {
    DXF_GRAPHIC_DIMENSION_2LineAngularDimension()
        : DXF_GRAPHIC_DIMENSION_ANGULAR(DXF_DIMENSION_PART_2LINE_ANGULAR)
    {
    }
};

// "AcDbRotatedDimension"
struct DXF_GRAPHIC_DIMENSION_RotatedDimension : DXF_GRAPHIC_DIMENSION_BASE {
    DXF_GRAPHIC_DIMENSION_RotatedDimension() : DXF_GRAPHIC_DIMENSION_BASE(DXF_DIMENSION_PART_ROTATED) {}
};

// "AcDbOrdinateDimension"
struct DXF_GRAPHIC_DIMENSION_OrdinateDimension : DXF_GRAPHIC_DIMENSION_BASE {
    DXF_GRAPHIC_DIMENSION_OrdinateDimension() : DXF_GRAPHIC_DIMENSION_BASE(DXF_DIMENSION_PART_ORDINATE) {}

    double m_dExtLine1X = 0.0, m_dExtLine1Y = 0.0, m_dExtLine1Z = 0.0; // 13, 23, 33
    double m_dExtLine2X = 0.0, m_dExtLine2Y = 0.0, m_dExtLine2Z = 0.0; // 14, 24, 34
};

// The fields of the radial and the diametric part.
struct DXF_GRAPHIC_DIMENSION_CHORD : DXF_GRAPHIC_DIMENSION_BASE {
    using DXF_GRAPHIC_DIMENSION_BASE::DXF_GRAPHIC_DIMENSION_BASE;

    double m_dChordPointX = 0.0, m_dChordPointY = 0.0, m_dChordPointZ = 0.0; // 15, 25, 35
    double m_dLeaderLength = 0.0;                                            // 40
};

// "AcDbRadialDimension"
struct DXF_GRAPHIC_DIMENSION_RadialDimension : DXF_GRAPHIC_DIMENSION_CHORD {
    DXF_GRAPHIC_DIMENSION_RadialDimension() : DXF_GRAPHIC_DIMENSION_CHORD(DXF_DIMENSION_PART_RADIAL) {}
};

// "AcDbDiametricDimension"
struct DXF_GRAPHIC_DIMENSION_DiametricDimension : DXF_GRAPHIC_DIMENSION_CHORD {
    DXF_GRAPHIC_DIMENSION_DiametricDimension() : DXF_GRAPHIC_DIMENSION_CHORD(DXF_DIMENSION_PART_DIAMETRIC) {}
};
