// The types of entities that are curves, lines, points and outlines; each function draws one.
#pragma once

#include "prepare/plain/Pen.h"

namespace prepare {

void DrawLine(const Line& line, Pen& pen);
void DrawCircle(const Circle& circle, Pen& pen);
void DrawArc(const Arc& arc, Pen& pen);
void DrawEllipse(const Ellipse& ellipse, Pen& pen);
void DrawLwPolyline(const LwPolyline& polyline, Pen& pen);
void DrawPolyline(const Polyline& polyline, Pen& pen);
// What a POLYLINE with flag 16, or 64, is.
void DrawPolygonMesh(const Polyline& mesh, Pen& pen);
void DrawPolyface(const Polyline& polyface, Pen& pen);
void DrawSpline(const Spline& spline, Pen& pen);
void DrawMesh(const Mesh& mesh, Pen& pen);
void DrawSolid(const Solid& solid, Pen& pen);
void DrawFace(const Solid& face, Pen& pen);

} // namespace prepare
