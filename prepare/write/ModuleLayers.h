// Marks that say to a host which layer is drawn.
#pragma once

#include "prepare/write/KeptDrawing.h"
#include "prepare/write/PairWriter.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace prepare {

// The number of a layer among those of a drawing's styles; 0: none, or more than one.
using LayerNumber = std::size_t;

// Knows the layers of what is written, and of blocks.
class ModuleLayers {
public:
    // Without marks, nothing has a layer. All must outlive it.
    ModuleLayers(const Drawing& drawing, const StyleTable& styles, const std::deque<KeptBlock>& blocks,
                 bool hasMarks);

    LayerNumber Of(StyleId style) const { return m_hasMarks ? m_ofStyle[style] : 0; }
    // The layer that all of a block is on. Looks into each block once.
    LayerNumber OfBlock(std::size_t block) { return m_hasMarks ? Know(block).layer : 0; }

    // The blocks that marks insert, which are empty.
    void WriteBlocks(PairWriter& pairs) const;
    // What is inserted after this is on that layer.
    void WriteMark(PairWriter& pairs, LayerNumber layer) const;
    bool HasMarks() const { return m_hasMarks; }

private:
    class Visitor;
    // What is in a block: nothing, things of one layer, or others.
    struct Contents {
        bool isKnown = false;
        bool hasAny = false;
        LayerNumber layer = 0;
    };

    const Contents& Know(std::size_t block);

    const bool m_hasMarks;
    const std::deque<KeptBlock>& m_blocks;
    std::vector<std::string> m_names; // of the marks' blocks; the first ends a layer
    std::vector<LayerNumber> m_ofStyle;
    std::vector<Contents> m_ofBlock;
};

} // namespace prepare
