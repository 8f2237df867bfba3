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
// The smooth curve through these points, which are in world coordinates.
void DrawThrough(const std::vector<Point3>& points, Pen& pen);
void DrawMesh(const Mesh& mesh, Pen& pen);
void DrawSolid(const Solid& solid, Pen& pen);
void DrawFace(const Solid& face, Pen& pen);
void DrawMultiLine(const MultiLine& multiLine, Pen& pen);
void DrawLeader(const Leader& leader, Pen& pen);
void DrawMultiLeader(const MultiLeader& leader, Pen& pen);
// Also XLINE.
void DrawRay(const Ray& ray, Pen& pen);
void DrawPoint(const PointEntity& point, Pen& pen);
void DrawImage(const Image& image, Pen& pen);
void DrawWipeout(const Image& wipeout, Pen& pen);
void DrawUnderlay(const Image& underlay, Pen& pen);
void DrawOleFrame(const OleFrame& frame, Pen& pen);
void DrawProxy(const Proxy& proxy, Pen& pen);

} // namespace prepare
