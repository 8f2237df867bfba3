#include "prepare/write/ModuleLayers.h"

#include "prepare/write/AgreedBlocks.h"
#include "prepare/write/ModuleEncoding.h"
#include "prepare/write/ModuleRemedies.h"

#include <map>
#include <utility>

namespace prepare {

// Finds the layer that all of a log is on.
class ModuleLayers::Visitor final : public LogVisitor {
public:
    Visitor(ModuleLayers& layers, Contents& contents) : m_layers(layers), m_contents(contents) {}

    void Line(StyleId style, Point2, Point2) override { Add(m_layers.Of(style)); }
    void Circle(StyleId style, Point2, double) override { Add(m_layers.Of(style)); }
    void Arc(StyleId style, Point2, double, double, double) override { Add(m_layers.Of(style)); }
    void Ellipse(StyleId style, Point2, Point2, double, double, double) override { Add(m_layers.Of(style)); }
    void Polyline(StyleId style, std::span<const PlainVertex>, bool) override { Add(m_layers.Of(style)); }
    void Fill(StyleId style, std::span<const std::vector<Point2>>) override { Add(m_layers.Of(style)); }
    void Mask(StyleId, std::span<const std::vector<Point2>>) override { Add(0); }
    void Text(StyleId style, const LoggedText&) override { Add(m_layers.Of(style)); }
    void Insert(std::size_t block, Point2, double, bool) override
    {
        const Contents inner = m_layers.Know(block);
        if (inner.hasAny)
            Add(inner.layer);
    }

private:
    void Add(LayerNumber layer)
    {
        m_contents.layer = !m_contents.hasAny || m_contents.layer == layer ? layer : 0;
        m_contents.hasAny = true;
    }

    ModuleLayers& m_layers;
    Contents& m_contents;
};

ModuleLayers::ModuleLayers(const Drawing& drawing, const StyleTable& styles,
                           const std::deque<KeptBlock>& blocks, bool hasMarks)
    : m_hasMarks(hasMarks), m_blocks(blocks)
{
    if (!hasMarks)
        return;
    m_names.emplace_back(kLayerPrefix);
    std::map<std::string, LayerNumber> numbers;
    for (StyleId style = 0; style < styles.Count(); ++style) {
        const NameId layer = styles[style].layer;
        bool isCut = false;
        std::string name = ValueForModule(layer == kNoName ? "0" : drawing.names.Text(layer), isCut);
        EncodeForModule(name);
        const auto [place, isNew] = numbers.try_emplace(name, m_names.size());
        if (isNew)
            m_names.push_back(std::string(kLayerPrefix) + name);
        m_ofStyle.push_back(place->second);
    }
    m_ofBlock.resize(blocks.size());
}

// Blocks are never nested deeper than the converter lets them be, and so is the recursion.
const ModuleLayers::Contents& ModuleLayers::Know(std::size_t block)
{
    if (!std::exchange(m_ofBlock[block].isKnown, true)) {
        Visitor visitor(*this, m_ofBlock[block]);
        m_blocks[block].log.Replay(visitor);
    }
    return m_ofBlock[block];
}

void ModuleLayers::WriteBlocks(PairWriter& pairs) const
{
    for (const std::string& name : m_names) {
        pairs.Text(0, "BLOCK");
        pairs.Text(2, name);
        pairs.Text(0, "ENDBLK");
    }
}

void ModuleLayers::WriteMark(PairWriter& pairs, LayerNumber layer) const
{
    pairs.Text(0, "INSERT");
    pairs.Text(2, m_names[layer]);
}

} // namespace prepare
