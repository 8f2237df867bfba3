// Dimensions for tests: their lines, and what their records hold.
#pragma once

#include "dimension/DXF_GRAPHIC_DIMENSION_PARTS.h"
#include "entities/DXF_GRAPHIC_DIMENSION.h"
#include "support/OneEntity.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

// Every marker that begins a part.
inline constexpr std::string_view kPartMarkers[] = {"AcDbEntity",
                                                    "AcDbDimension",
                                                    "AcDbAlignedDimension",
                                                    "AcDb3PointAngularDimension",
                                                    "AcDb2LineAngularDimension",
                                                    "AcDbRotatedDimension",
                                                    "AcDbOrdinateDimension",
                                                    "AcDbRadialDimension",
                                                    "AcDbDiametricDimension"};

// The fields of every part of a dimension, in their order.
std::vector<FieldTexts> PartsOf(const DXF_GRAPHIC_DIMENSION& dimension);

// What a part holds when its file gives none of its fields, by its marker.
FieldTexts PartDefaults(std::string_view marker);

// The lines of a part: its marker and its groups.
std::string Part(std::string_view marker, std::initializer_list<Group> groups = {});

// A drawing that holds one dimension of these parts.
std::string DimensionDrawing(const std::string& parts);

// Reads a drawing of one dimension; its first group is in lines 7 and 8.
class OneDimension : public ReportingReader {
public:
    explicit OneDimension(const std::string& groups) { ReadText(DimensionDrawing(groups)); }

    // The dimension; an empty one when it is not the only entity.
    const DXF_GRAPHIC_DIMENSION& Record() const { return OnlyEntity<DXF_GRAPHIC_DIMENSION>(entities); }
    std::vector<FieldTexts> AllParts() const { return PartsOf(Record()); }
};
