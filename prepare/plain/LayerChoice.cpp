#include "prepare/plain/LayerChoice.h"

#include "base/Letters.h"
#include "base/NamePatterns.h"

#include <algorithm>

namespace prepare {

namespace {

constexpr std::int32_t kFrozen = 1;

bool MatchesAny(std::string_view name, const std::vector<std::string>& patterns)
{
    return std::any_of(patterns.begin(), patterns.end(), [&](const std::string& pattern) {
        return MatchesPattern(name, pattern, Wildcards::StarAlone);
    });
}

} // namespace

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
    if (AreSameLetters(name, "DEFPOINTS"))
        return HiddenLayer::NotPlotted;
    const Layer* const found = m_drawing.FindLayer(layer);
    if (IsFrozenBesides(layer) || (found != nullptr && (found->colour < 0 || (found->flags & kFrozen) != 0)))
        return HiddenLayer::OffOrFrozen;
    if (found != nullptr && m_options.isForPaper && found->isPlotted == 0)
        return HiddenLayer::NotPlotted;
    return {};
}

} // namespace prepare
