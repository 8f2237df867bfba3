#include "prepare/plain/DrawLeader.h"

#include "base/Numbers.h"
#include "prepare/plain/DrawLeaderLine.h"

#include <string_view>
#include <vector>

namespace prepare {

namespace {

// What counts for leaders in a dimension style: its values by group code, with the leader's own before them.
class LeaderStyle {
public:
    LeaderStyle(const Leader& leader, const Drawing& drawing) : m_leader(leader), m_drawing(drawing)
    {
        const auto found = drawing.dimStyles.find(leader.dimStyle);
        m_style = found == drawing.dimStyles.end() ? nullptr : &found->second;
    }

    double ArrowSize() const
    {
        constexpr std::int32_t kSize = 41, kScale = 40;
        const double scale = Real(kScale, "$DIMSCALE", 1);
        return Real(kSize, "$DIMASZ", 0.18) * (scale > 0 ? scale : 1);
    }
    // kByBlock: as the leader itself.
    std::int32_t Colour() const
    {
        constexpr std::int32_t kColour = 176;
        const std::string_view value = Value(kColour);
        return value.empty() ? kByBlock : ParseInteger(value);
    }
    // The name of the arrowhead's block; empty for the usual one.
    std::string_view Arrow() const;

private:
    std::string_view Value(std::int32_t code) const;
    double Real(std::int32_t code, std::string_view variable, double otherwise) const
    {
        const std::string_view value = Value(code);
        return value.empty() ? m_drawing.header.Real(variable, otherwise) : ParseReal(value);
    }

    const Leader& m_leader;
    const Drawing& m_drawing;
    const DimStyle* m_style;
};

std::string_view LeaderStyle::Value(std::int32_t code) const
{
    for (const auto& [itsCode, value] : m_leader.overrides) {
        if (itsCode == code)
            return value;
    }
    if (m_style != nullptr) {
        for (const auto& [itsCode, value] : m_style->values) {
            if (itsCode == code)
                return value;
        }
    }
    return {};
}

std::string_view LeaderStyle::Arrow() const
{
    constexpr std::int32_t kArrowBlock = 341;
    return ArrowOfBlock(ParseHex(Trim(Value(kArrowBlock))).value_or(0), m_drawing);
}

} // namespace

// The hook line is one of the segments.
void DrawLeader(const Leader& leader, Pen& pen)
{
    const LeaderStyle style(leader, pen.Place().drawing);
    const std::vector<Point3> points = DrawableOf(leader.vertices, pen);
    if (style.Colour() != kByBlock)
        pen.UseStyleOf({style.Colour(), kNoTrueColour, kNoName, kNoName});
    DrawLeaderLine(points, leader.isSpline != 0, pen);
    if (leader.hasArrow != 0)
        DrawLeaderArrow(style.Arrow(), points, style.ArrowSize(), pen);
}

} // namespace prepare
