#include "prepare/plain/LayerChoice.h"

#include "base/Letters.h"

#include <algorithm>

namespace prepare {

namespace {

constexpr std::int32_t kFrozen = 1;

bool MatchesAny(std::string_view name, const std::vector<std::string>& patterns)
{
    return std::any_of(patterns.begin(), patterns.end(),
                       [&](const std::string& pattern) { return MatchesPattern(name, pattern); });
}

} // namespace

// Only the last star is ever tried again: what an earlier one could take, that one can take, too.
bool MatchesPattern(std::string_view name, std::string_view pattern)
{
    std::size_t at = 0, of = 0, star = std::string_view::npos, retry = 0;
    while (at < name.size()) {
        if (of < pattern.size() && pattern[of] == '*') {
            star = of++;
            retry = at;
        } else if (of < pattern.size() && SmallLetter(pattern[of]) == SmallLetter(name[at])) {
            ++of;
            ++at;
        } else if (star != std::string_view::npos) {
            of = star + 1;
            at = ++retry;
        } else {
            return false;
        }
    }
    return std::all_of(pattern.begin() + static_cast<std::ptrdiff_t>(of), pattern.end(),
                       [](char c) { return c == '*'; });
}

std::string_view LayerChoice::NameOf(NameId layer) const
{
    return layer == kNoName ? "0" : m_drawing.names.Text(layer);
}

std::optional<HiddenLayer> LayerChoice::WhyHidden(NameId layer)
{
    if (layer >= m_answers.size())
        m_answers.resize(std::max<std::size_t>(layer + 1, m_drawing.names.Count()));
    Answer& answer = m_answers[layer];
    if (!answer.isKnown)
        answer = {true, Decide(layer)};
    return answer.hidden;
}

// Whether the layer is asked for by name. Such layers are shown whatever their state.
bool LayerChoice::IsWanted(NameId layer) const
{
    return MatchesAny(NameOf(layer), m_options.onlyLayers);
}

bool LayerChoice::IsFrozen(NameId layer) const
{
    const Layer* const found = m_drawing.FindLayer(layer);
    const bool isFrozen = (found != nullptr && (found->flags & kFrozen) != 0) || IsFrozenBesides(layer);
    return isFrozen && !m_options.showsAllLayers && !IsWanted(layer);
}

// DEFPOINTS holds the points that dimensions are made from: it is never plotted.
std::optional<HiddenLayer> LayerChoice::Decide(NameId layer) const
{
    const std::string_view name = NameOf(layer);
    const bool isChosen = m_options.onlyLayers.empty() || IsWanted(layer);
    if (!isChosen || MatchesAny(name, m_options.withoutLayers))
        return HiddenLayer::NotChosen;
    if (!m_options.onlyLayers.empty() || m_options.showsAllLayers)
        return {};
    if (MatchesPattern(name, "DEFPOINTS"))
        return HiddenLayer::NotPlotted;
    const Layer* const found = m_drawing.FindLayer(layer);
    if (IsFrozenBesides(layer) || (found != nullptr && (found->colour < 0 || (found->flags & kFrozen) != 0)))
        return HiddenLayer::OffOrFrozen;
    if (found != nullptr && m_options.isForPaper && found->isPlotted == 0)
        return HiddenLayer::NotPlotted;
    return {};
}

} // namespace prepare
