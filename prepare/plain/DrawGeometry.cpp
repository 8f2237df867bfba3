#include "prepare/plain/DrawGeometry.h"

#include "prepare/plain/DrawCurves.h"
#include "prepare/plain/DrawFrames.h"
#include "prepare/plain/DrawHatch.h"
#include "prepare/plain/DrawLeader.h"
#include "prepare/plain/DrawMeshes.h"
#include "prepare/plain/DrawMultiLeader.h"
#include "prepare/plain/DrawMultiLine.h"
#include "prepare/plain/DrawPoint.h"
#include "prepare/plain/DrawPolylines.h"
#include "prepare/plain/DrawProxy.h"
#include "prepare/plain/DrawRays.h"
#include "prepare/plain/DrawSolids.h"
#include "prepare/plain/DrawSplines.h"
#include "prepare/plain/DrawWipeout.h"

namespace prepare {

namespace {

// Each reads the record that entities of its type are.
bool DrawCurve(const Entity& entity, Pen& pen)
{
    switch (entity.type) {
    case EntityType::Line:
    case EntityType::Line3d:
        DrawLine(static_cast<const Line&>(entity), pen);
        return true;
    case EntityType::Circle:
        DrawCircle(static_cast<const Circle&>(entity), pen);
        return true;
    case EntityType::Arc:
        DrawArc(static_cast<const Arc&>(entity), pen);
        return true;
    case EntityType::Ellipse:
        DrawEllipse(static_cast<const Ellipse&>(entity), pen);
        return true;
    case EntityType::LwPolyline:
        DrawLwPolyline(static_cast<const LwPolyline&>(entity), pen);
        return true;
    case EntityType::Polyline:
        DrawPolyline(static_cast<const Polyline&>(entity), pen);
        return true;
    case EntityType::Spline:
    case EntityType::Helix:
        DrawSpline(static_cast<const Spline&>(entity), pen);
        return true;
    default:
        return false;
    }
}

bool DrawArea(const Entity& entity, Pen& pen)
{
    switch (entity.type) {
    case EntityType::Solid:
    case EntityType::Trace:
        DrawSolid(static_cast<const Solid&>(entity), pen);
        return true;
    case EntityType::Mesh:
        DrawMesh(static_cast<const Mesh&>(entity), pen);
        return true;
    case EntityType::Face:
        DrawFace(static_cast<const Solid&>(entity), pen);
        return true;
    case EntityType::Hatch:
        DrawHatch(static_cast<const Hatch&>(entity), pen);
        return true;
    default:
        return false;
    }
}

bool DrawCompound(const Entity& entity, Pen& pen)
{
    switch (entity.type) {
    case EntityType::MultiLine:
        DrawMultiLine(static_cast<const MultiLine&>(entity), pen);
        return true;
    case EntityType::Leader:
        DrawLeader(static_cast<const Leader&>(entity), pen);
        return true;
    case EntityType::MultiLeader:
        DrawMultiLeader(static_cast<const MultiLeader&>(entity), pen);
        return true;
    case EntityType::Ray:
    case EntityType::XLine:
        DrawRay(static_cast<const Ray&>(entity), pen);
        return true;
    case EntityType::Point:
        DrawPoint(static_cast<const PointEntity&>(entity), pen);
        return true;
    default:
        return false;
    }
}

bool DrawFramed(const Entity& entity, Pen& pen)
{
    switch (entity.type) {
    case EntityType::Image:
        DrawImage(static_cast<const Image&>(entity), pen);
        return true;
    case EntityType::Underlay:
        DrawUnderlay(static_cast<const Image&>(entity), pen);
        return true;
    case EntityType::OleFrame:
    case EntityType::Ole2Frame:
        DrawOleFrame(static_cast<const OleFrame&>(entity), pen);
        return true;
    case EntityType::Proxy:
        DrawProxy(static_cast<const Proxy&>(entity), pen);
        return true;
    case EntityType::Wipeout:
        DrawWipeout(static_cast<const Image&>(entity), pen);
        return true;
    default:
        return false;
    }
}

bool ReportSolid(const Entity& entity, Pen& pen)
{
    if (entity.type != EntityType::Other || !IsModelledSolid(pen.TypeName()))
        return false;
    pen.Report(Finding::NotShown, "a modelled solid or surface");
    return true;
}

} // namespace

bool DrawGeometry(const Entity& entity, const Placement& placement, const PartStyler& styleOf)
{
    Pen pen(entity, placement, styleOf);
    const bool isDrawn = DrawCurve(entity, pen) || DrawArea(entity, pen) || DrawCompound(entity, pen) ||
                         DrawFramed(entity, pen) || ReportSolid(entity, pen);
    pen.Finish();
    return isDrawn;
}

} // namespace prepare
