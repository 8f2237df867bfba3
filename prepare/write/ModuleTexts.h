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

// point is on the base line.
void WriteModuleText(PairWriter& pairs, const ModuleStyles& styles, const ModuleText& text, Point2 point,
                     int decimals);

// The blocks that have one text at their origin, and those that have one of these, turned. Equal texts share
// a block.
class ModuleTexts {
public:
    // Both take a text that is not upright: with letters that are not slanted, the turn is 0.
    void Add(const ModuleText& text, double innerRotation);
    std::string NameOf(const ModuleText& text, double innerRotation) const;

    bool IsEmpty() const { return m_texts.empty(); }
    void WriteBlocks(PairWriter& pairs, const ModuleStyles& styles, int decimals) const;

private:
    using Turned = std::pair<std::size_t, std::int64_t>; // a text's number, and millionths of a degree

    std::map<ModuleText, std::size_t> m_numbers;
    std::vector<const ModuleText*> m_texts; // the keys of m_numbers
    std::map<Turned, std::size_t> m_turned;
};

// Degrees, from 0 to 360.
double DegreesOf(double radians);

// The rotation of an insert goes through a 32-bit float and six decimals.
inline constexpr int kRotationDecimals = 6;

} // namespace prepare
