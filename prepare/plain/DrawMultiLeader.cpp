#include "prepare/plain/DrawMultiLeader.h"

#include "prepare/plain/DrawLeaderLine.h"
#include "prepare/plain/DrawMText.h"
#include "prepare/plain/NoteParts.h"
#include "prepare/plain/PackedColour.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace prepare {

namespace {

// The line from the arrow to the landing, and the dogleg after it.
std::vector<Point3> PathOf(const LeaderLine& line, const LeaderBranch& branch, bool hasDogleg)
{
    std::vector<Point3> path = line.vertices;
    if (branch.hasLanding) {
        path.push_back(branch.landing);
        if (hasDogleg && branch.length > 0)
            path.push_back(branch.landing + branch.length * branch.dogleg);
    }
    return path;
}

void FillBehind(const MultiLeader& entity, MText& text)
{
    constexpr std::int32_t kFilled = 1, kAsWindow = 2, kFramed = 16;
    text.fill = entity.hasFrame != 0 ? kFramed : 0;
    if (entity.hasFill != 0)
        text.fill |= entity.fillsAsWindow != 0 ? kAsWindow : kFilled;
    const StyleOfPart colour = UnpackColour(entity.fillColour);
    text.fillColour = colour.colour;
    text.hasFillColour = true;
    text.fillTrueColour = colour.trueColour;
    text.fillScale = entity.fillScale;
    text.frameGap = entity.landingGap;
}

} // namespace

void DrawMultiLeader(const MultiLeader& leader, Pen& pen)
{
    constexpr std::int32_t kNoLines = 0, kSplines = 2;
    if (leader.leaderType == kNoLines)
        return;
    pen.UseStyleOf(UnpackColour(leader.lineColour));
    const std::string_view arrow = ArrowOfBlock(leader.arrowHandle, pen.Place().drawing);
    for (const LeaderBranch& branch : leader.branches) {
        for (const LeaderLine& line : branch.lines) {
            const std::vector<Point3> points = FiniteOf(PathOf(line, branch, leader.hasDogleg != 0), pen);
            DrawLeaderLine(points, leader.leaderType == kSplines, pen);
            DrawLeaderArrow(arrow, points, leader.arrowSize, pen);
        }
    }
}

void DrawMultiLeaderText(const MultiLeader& entity, const Placement& placement, const PartStyler& styleOf)
{
    constexpr std::int32_t kTextContent = 2, kRight = 3;
    if (entity.contentType != kTextContent)
        return;
    MText text;
    text.line = entity.line;
    text.point = entity.textPoint;
    text.extrusion = entity.extrusion;
    text.height = entity.textHeight;
    text.width = entity.textWidth;
    text.text = entity.text;
    text.direction = entity.textDirection;
    text.hasDirection = true;
    text.flow = entity.textFlow;
    text.attachment = std::clamp(entity.textAttachment, 1, kRight);
    FillBehind(entity, text);
    const auto style = placement.drawing.textStyleOfHandle.find(entity.textStyleHandle);
    text.style = style != placement.drawing.textStyleOfHandle.end() ? style->second : entity.textStyle;
    DrawMText(text, InStyle(placement, styleOf(UnpackColour(entity.textColour))), styleOf, "MULTILEADER");
}

} // namespace prepare
