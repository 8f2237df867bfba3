// Texts for the module, and the blocks that turn and stretch them.
#pragma once

#include "prepare/write/ModuleRemedies.h"
#include "prepare/write/ModuleStyles.h"
#include "prepare/write/PlainLog.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace prepare {

// What a TEXT says, but for its point.
struct ModuleText {
    std::string value;
    double size = 0; // of the font
    Anchor anchor = Anchor::Start;
    StyleId style = 0;

    friend auto operator<=>(const ModuleText&, const ModuleText&) = default;
};

// A text of a line, and where its anchor is, from the line's.
struct ModuleRun {
    ModuleText text;
    double x = 0;
    double y = 0;
    // Of a line's first text: what of a line that starts at x is at its anchor.
    Anchor origin = Anchor::Start;
    // The same: how much wider than usual the blanks between its texts are, in thousandths of
    // the size of its font. Above 0, the line ends at its anchor.
    std::int32_t spread = 0;

    friend auto operator<=>(const ModuleRun&, const ModuleRun&) = default;
};

using ModuleLine = std::vector<ModuleRun>;

// point is on the base line.
void WriteModuleText(PairWriter& pairs, const ModuleStyles& styles, const ModuleText& text, Point2 point,
                     int decimals);

// The blocks that have a line of texts at their origin, and those that have one of these, turned. Equal lines
// share a block.
class ModuleTexts {
public:
    // Both take a line that needs a block: with letters that are not slanted, the turn is 0.
    void Add(const ModuleLine& line, double innerRotation);
    std::string NameOf(const ModuleLine& line, double innerRotation) const;

    bool IsEmpty() const { return m_lines.empty(); }
    void WriteBlocks(PairWriter& pairs, const ModuleStyles& styles, int decimals) const;

private:
    using Turned = std::pair<std::size_t, std::int64_t>; // a line's number, and millionths of a degree

    std::map<ModuleLine, std::size_t> m_numbers;
    std::vector<const ModuleLine*> m_lines; // the keys of m_numbers
    std::map<Turned, std::size_t> m_turned;
};

// Degrees, from 0 to 360.
double DegreesOf(double radians);

// The rotation of an insert goes through a 32-bit float and six decimals.
inline constexpr int kRotationDecimals = 6;

} // namespace prepare
