// Which layers are shown.
#pragma once

#include "prepare/Options.h"
#include "prepare/drawing/Drawing.h"
#include "prepare/report/Report.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string_view>
#include <vector>

namespace prepare {

// Decides by a drawing's layers and by what was asked for. frozen, which may be null, has further layers
// that are frozen. All must outlive it.
class LayerChoice {
public:
    LayerChoice(const Drawing& drawing, const Options& options, const std::set<NameId>* frozen = nullptr)
        : m_drawing(drawing), m_options(options), m_frozen(frozen)
    {
    }

    // Whether what is on that layer is shown. A layer without a name is layer 0.
    bool Shows(NameId layer) { return !WhyHidden(layer); }
    // Why it is not shown; nothing if it is.
    std::optional<HiddenLayer> WhyHidden(NameId layer);

    // Whether the layer is frozen: an insert on it shows nothing, whatever the layers in its block.
    bool IsFrozen(NameId layer) const;

private:
    std::optional<HiddenLayer> Decide(NameId layer) const;
    bool IsWanted(NameId layer) const;
    std::string_view NameOf(NameId layer) const;
    bool IsFrozenBesides(NameId layer) const { return m_frozen != nullptr && m_frozen->contains(layer); }

    const Drawing& m_drawing;
    const Options& m_options;
    const std::set<NameId>* m_frozen;
    struct Answer {
        bool isKnown = false;
        std::optional<HiddenLayer> hidden;
    };
    std::vector<Answer> m_answers; // by name
};

} // namespace prepare
