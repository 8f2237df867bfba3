// The styles of a drawing as the module understands them.
#pragma once

#include "prepare/write/PairWriter.h"
#include "prepare/write/StyleTable.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace prepare {

// Each style's pairs, made once, and the line types that they name.
class ModuleStyles {
public:
    // factor: units of the written drawing in one of the settings.
    ModuleStyles(const StyleTable& styles, const WriteSettings& settings, double factor);

    // Colour, weight and line type.
    const std::string& OfStroke(StyleId style) const { return m_strokes[style]; }
    // How wide it is, as written.
    double WidthOf(StyleId style) const { return m_widths[style]; }
    // The colour alone.
    const std::string& OfLetters(StyleId style) const { return m_letters[style]; }
    // The TABLES section; nothing when no line is dashed.
    void WriteTables(PairWriter& pairs) const;

private:
    std::string StrokeOf(const Style& style, double width);
    std::string LineTypeOf(const Style& style, double width);

    std::vector<std::string> m_strokes;
    std::vector<std::string> m_letters;
    std::vector<double> m_widths;
    std::map<std::vector<double>, std::string> m_names; // of line types, by their patterns
    std::vector<const std::vector<double>*> m_patterns; // in the order of their names
    std::size_t m_lengths = 0;                          // in all of them
    double m_factor;
    PairForm m_form;
};

// In which form the drawing is written.
inline PairForm FormFor(const WriteSettings& settings)
{
    return settings.isReadAtOnce ? PairForm::Columns : PairForm::Short;
}

} // namespace prepare
