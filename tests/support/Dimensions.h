// Dimensions for tests: their lines, and what their records hold.
#pragma once

#include "dimension/DXF_GRAPHIC_DIMENSION_PARTS.h"
#include "entities/DXF_GRAPHIC_DIMENSION.h"
#include "support/Fields.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

// All fields of a part, and as "part" the type of its record, without DXF_GRAPHIC_DIMENSION_.
FieldTexts FieldMapOf(const DXF_GRAPHIC_DIMENSION_BASE& part);

// The fields of every part of a dimension, in their order.
std::vector<FieldTexts> PartsOf(const DXF_GRAPHIC_DIMENSION& dimension);

// What a part holds when its file gives none of its fields, by its marker.
FieldTexts PartDefaults(std::string_view marker);

// The lines of a part: its marker and its groups.
std::string Part(std::string_view marker, std::initializer_list<std::string_view> groups = {});

// A drawing that holds one dimension of these parts.
std::string DimensionDrawing(const std::string& parts);
