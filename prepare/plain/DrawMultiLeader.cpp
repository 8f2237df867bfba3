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

constexpr std::int32_t kNoLines = 0, kSplines = 2; // leaderType

bool HasDogleg(const MultiLeader& leader, const LeaderBranch& branch)
{
    return leader.hasDogleg != 0 && branch.isVertical == 0 && branch.length > 0;
}

// Where the leader meets its text.
Point3 EndOf(const MultiLeader& leader, const LeaderBranch& branch)
{
    return HasDogleg(leader, branch) ? branch.landing + branch.length * branch.dogleg : branch.landing;
}

// The line from the arrow to the landing, and the dogleg after it.
std::vector<Point3> PathOf(const LeaderLine& line, const LeaderBranch& branch, const MultiLeader& leader)
{
    std::vector<Point3> path = line.vertices;
    if (branch.hasLanding) {
        path.push_back(branch.landing);
        if (HasDogleg(leader, branch))
            path.push_back(EndOf(leader, branch));
    }
    return path;
}

// Some leaders go on as a line under one of the lines of their text.
bool IsUnderText(const MultiLeader& leader, const LeaderBranch& branch)
{
    constexpr std::int32_t kUnderLast = 5, kUnderFirst = 6, kUnderAll = 8;
    const bool isFromLeft = Dot(leader.textDirection, branch.dogleg) > 0;
    const std::int32_t landing = isFromLeft ? leader.leftLanding : leader.rightLanding;
    return leader.leaderType != kNoLines && branch.hasLanding && branch.isVertical == 0 &&
           (landing == kUnderLast || landing == kUnderFirst || landing == kUnderAll);
}

void DrawLinesUnderText(const MultiLeader& leader, double width, const Placement& placement,
                        const Style& style)
{
    const double length = width + 2 * std::max(leader.landingGap, 0.0);
    for (const LeaderBranch& branch : leader.branches) {
        if (!IsUnderText(leader, branch) || !(Length(branch.dogleg) > 0))
            continue;
        const Point3 start = EndOf(leader, branch);
        const Point2 from = placement.matrix.Flat(start);
        const Point2 to = placement.matrix.Flat(start + (length / Length(branch.dogleg)) * branch.dogleg);
        if (!IsDrawable(from) || !IsDrawable(to) || from == to)
            continue;
        placement.budget.Take(2);
        placement.sink.Line(style, from, to);
    }
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
    if (leader.leaderType == kNoLines)
        return;
    pen.UseStyleOf(UnpackColour(leader.lineColour));
    const std::string_view arrow = ArrowOfBlock(leader.arrowHandle, pen.Place().drawing);
    for (const LeaderBranch& branch : leader.branches) {
        for (const LeaderLine& line : branch.lines) {
            const std::vector<Point3> points = DrawableOf(PathOf(line, branch, leader), pen);
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
    const double width =
        DrawMText(text, InStyle(placement, styleOf(UnpackColour(entity.textColour))), styleOf, "MULTILEADER");
    DrawLinesUnderText(entity, width, placement, styleOf(UnpackColour(entity.lineColour)));
}

} // namespace prepare
