// The edges of POLYLINE meshes, polyfaces and MESH.
#pragma once

#include "prepare/plain/Pen.h"

namespace prepare {

// A POLYLINE with flag 16.
void DrawPolygonMesh(const Polyline& mesh, Pen& pen);
// A POLYLINE with flag 64.
void DrawPolyface(const Polyline& polyface, Pen& pen);
void DrawMesh(const Mesh& mesh, Pen& pen);

} // namespace prepare
