#include "prepare/write/ModuleStyles.h"

#include "prepare/write/ModuleDashes.h"
#include "prepare/write/ModuleRemedies.h"
#include "prepare/write/StrokeWidth.h"

#include <numeric>

namespace prepare {

namespace {

// A drawing can have a pattern for each few bytes: of one that has more lengths than this in all of its
// patterns, the others become short.
constexpr std::size_t kMostLengths = 200'000, kLengthsOfOthers = 10;

void WriteLineType(PairWriter& pairs, std::string_view name, const std::vector<double>& pattern)
{
    constexpr int kDigitsOfDashes = 9;
    pairs.Text(0, "LTYPE");
    pairs.Text(100, "AcDbSymbolTableRecord");
    pairs.Text(100, "AcDbLinetypeTableRecord");
    pairs.Text(2, name);
    pairs.Integer(70, 0);
    pairs.Integer(72, 'A');
    pairs.Integer(73, static_cast<std::int64_t>(pattern.size()));
    pairs.Real(40, std::accumulate(pattern.begin(), pattern.end(), 0.0), kDigitsOfDashes);
    for (std::size_t i = 0; i < pattern.size(); ++i)
        pairs.Real(49, i % 2 == 0 ? pattern[i] : -pattern[i], kDigitsOfDashes);
}

} // namespace

ModuleStyles::ModuleStyles(const StyleTable& styles, const WriteSettings& settings, double factor)
    : m_factor(factor), m_form(FormFor(settings))
{
    for (StyleId id = 0; id < styles.Count(); ++id) {
        const Style& style = styles[id];
        const CodeAndValue colour = ColourForModule(style.colour);
        m_letters.push_back(PairText(colour.code, std::to_string(colour.value), m_form));
        m_widths.push_back(factor * StrokeWidth(settings, style.weight, style.width));
        m_strokes.push_back(m_letters.back() + StrokeOf(style, m_widths.back()));
    }
}

std::string ModuleStyles::StrokeOf(const Style& style, double width)
{
    std::string pairs = PairText(370, std::to_string(WeightForModule(width)), m_form);
    if (const std::string name = LineTypeOf(style, width); !name.empty())
        pairs += PairText(6, name, m_form);
    return pairs;
}

std::string ModuleStyles::LineTypeOf(const Style& style, double width)
{
    if (style.lineType == nullptr || style.lineType->dashes.empty())
        return {};
    const std::size_t most = m_lengths < kMostLengths ? kMostDashes : kLengthsOfOthers;
    std::vector<double> pattern =
        DashesForModule(*style.lineType, m_factor * style.lineTypeScale, width, most);
    if (pattern.empty())
        return {};
    const auto [place, isNew] = m_names.try_emplace(std::move(pattern));
    if (isNew) {
        place->second = Numbered("D", m_names.size());
        m_patterns.push_back(&place->first);
        m_lengths += place->first.size();
    }
    return place->second;
}

void ModuleStyles::WriteTables(PairWriter& pairs) const
{
    if (m_patterns.empty())
        return;
    pairs.Text(0, "SECTION");
    pairs.Text(2, "TABLES");
    pairs.Text(0, "TABLE");
    pairs.Text(2, "LTYPE");
    pairs.Integer(70, static_cast<std::int64_t>(m_patterns.size()));
    for (const std::vector<double>* const pattern : m_patterns)
        WriteLineType(pairs, m_names.at(*pattern), *pattern);
    pairs.Text(0, "ENDTAB");
    pairs.Text(0, "ENDSEC");
}

} // namespace prepare
