// The kinds of dimensions; each function draws one.
#pragma once

#include "prepare/plain/DimensionArrows.h"
#include "prepare/plain/DimensionPen.h"
#include "prepare/plain/DimensionText.h"

namespace prepare {

void DrawLinearDimension(DimensionPen& pen, bool isAligned);
// Between two lines, or between two points seen from a third.
void DrawAngularDimension(DimensionPen& pen, bool isByLines);
void DrawArcLengthDimension(DimensionPen& pen);
void DrawRadialDimension(DimensionPen& pen);
void DrawDiametricDimension(DimensionPen& pen);
void DrawJoggedDimension(DimensionPen& pen);
void DrawOrdinateDimension(DimensionPen& pen, bool isX);

// A vector of length 1, or otherwise where it has no length.
Point2 Unit(Point2 vector, Point2 otherwise);

// From the measured point past the dimension line: away from one and beyond the other by what the style says.
void DrawExtension(DimensionPen& pen, Point2 measured, Point2 foot);

// How far the middle of a text is from the line that it belongs to, along the text's up; 0: on it.
double OffsetOfLabel(const DimensionPen& pen, const DimensionLabel& label, bool isOuterUp);

} // namespace prepare
