#include "svghost/PictureLayout.h"

#include "svghost/AgreedSymbols.h"
#include "svghost/Bounds.h"
#include "svghost/Fills.h"
#include "svghost/OrderByReference.h"
#include "svghost/SvgHostDocument.h"
#include "svghost/TextSymbols.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace svghost {

namespace {

bool IsOfDrawing(const Node& node)
{
    if (node.kind != Kind::Use)
        return !IsContainer(node);
    const std::wstring_view name = static_cast<const Use&>(node).target->name;
    return !name.starts_with(kWrapPrefix) && !name.starts_with(kLayerPrefix);
}

// Lays out one symbol, or the root, after all that it uses.
class SymbolLayout {
public:
    SymbolLayout(const SvgHostDocument& document, Symbol& symbol, PictureLayout& layout)
        : m_document(document), m_symbol(symbol), m_layout(layout)
    {
        m_symbol.rendered = 1;
        m_symbol.nesting = 1;
        m_symbol.smallestScale = m_symbol.largestScale = 1;
        m_symbol.box = m_symbol.bare = Box();
        m_symbol.widest = 0;
        m_symbol.visible = 0;
    }

    void Run()
    {
        Walk(
            m_symbol, [this](Node& node) { Enter(node); }, [this](const Container& group) { Leave(group); });
    }

private:
    void Enter(Node& node)
    {
        node.isLeftOut = (m_symbol.isFill && !IsFillEdge(node)) || !Keep(node);
        if (node.isLeftOut)
            return;
        ++m_symbol.rendered;
        m_layout.statistics.longDashPatterns +=
            m_document.ValueOf(AttributeId::DashArray, node.dashArray).isTooLong;
        m_layout.statistics.drawnElements += IsOfDrawing(node);
        if (node.kind == Kind::Group)
            m_hiddenGroups += node.isHidden;
        else if (!node.isHidden && m_hiddenGroups == 0)
            Add(node, ExtentOf(m_document, node));
        if (node.extra)
            CollectArrows(node);
    }

    void Add(const Node& node, const Extent& extent)
    {
        m_symbol.box.Add(extent.box);
        m_symbol.bare.Add(extent.bare);
        m_symbol.widest = std::max(m_symbol.widest, extent.width);
        m_symbol.visible += ShowsSomething(node, extent.box);
    }

    void Leave(const Container& group) { m_hiddenGroups -= group.isHidden; }

    bool Keep(Node& node)
    {
        if (!IsDrawable(node)) {
            ++m_layout.statistics.undrawableElements;
            return false;
        }
        return node.kind != Kind::Use || KeepUse(static_cast<Use&>(node));
    }

    bool KeepUse(const Use& use)
    {
        const Symbol* target = use.target->definition;
        // A use of a missing symbol draws nothing, but it is written: somebody may add the symbol.
        m_layout.statistics.missingSymbols += !target;
        if (target && m_symbol.kind == Kind::Symbol && target->cycle == m_symbol.cycle) {
            ++m_layout.statistics.cyclicUses;
            return false;
        }
        if (!KeepScale(use, target)) {
            ++m_layout.statistics.undrawableElements;
            return false;
        }
        return !target || KeepUnfolded(*target);
    }

    bool KeepScale(const Use& use, const Symbol* target)
    {
        const double scaleX = std::fabs(use.Number(AttributeId::ScaleX, 1));
        const double scaleY = std::fabs(use.Number(AttributeId::ScaleY, 1));
        const double smallest = std::min(scaleX, scaleY) * (target ? target->smallestScale : 1);
        const double largest = std::max(scaleX, scaleY) * (target ? target->largestScale : 1);
        if (smallest < kSmallestScale || largest > kLargestScale)
            return false;
        m_symbol.smallestScale = std::min(m_symbol.smallestScale, smallest);
        m_symbol.largestScale = std::max(m_symbol.largestScale, largest);
        return true;
    }

    bool KeepUnfolded(const Symbol& target)
    {
        const std::size_t rendered = m_symbol.rendered + target.rendered;
        const std::uint32_t nesting = std::max(m_symbol.nesting, target.nesting + 1);
        // The root draws its uses, it is not one level of them.
        const std::uint32_t deepest = m_symbol.kind == Kind::Root ? kDeepestUse + 1 : kDeepestUse;
        if (rendered > RenderBudget(m_document.elements) || nesting > deepest) {
            ++m_layout.statistics.unboundedUses;
            return false;
        }
        m_symbol.rendered = rendered;
        m_symbol.nesting = nesting;
        return true;
    }

    void CollectArrows(const Node& node)
    {
        for (const ArrowEnd end : {ArrowEnd::Begin, ArrowEnd::End}) {
            const double size = ArrowSize(m_document, node, end);
            if (size > 0)
                m_layout.arrows.try_emplace({node.stroke, size}, m_layout.arrows.size() + 1);
        }
    }

    const SvgHostDocument& m_document;
    Symbol& m_symbol;
    PictureLayout& m_layout;
    int m_hiddenGroups = 0;
};

// Finds the scales at which the picture shows each symbol. Users come before what they use.
class ShownScales {
public:
    explicit ShownScales(PictureLayout& layout) : m_layout(layout) {}

    static void Reset(Symbol& symbol)
    {
        symbol.shown = 0;
        symbol.meanScale = 0; // a sum of logarithms until Pass
        symbol.greatestScale = 0;
    }

    // Settles the symbol, and passes its scales on to what it uses.
    void Pass(Symbol& symbol)
    {
        symbol.meanScale = symbol.shown > 0 ? std::exp(symbol.meanScale / symbol.shown) : 1;
        if (symbol.shown == 0)
            return;
        const double factor = symbol.greatestScale / symbol.meanScale;
        m_layout.widestStroke = std::max(m_layout.widestStroke, symbol.widest * factor);
        m_layout.greatestFactor = std::max(m_layout.greatestFactor, factor);
        for (const Use* use = symbol.firstUse; use; use = use->nextOfSymbol) {
            Symbol* target = use->target->definition;
            if (target && !use->isLeftOut && !use->isHidden)
                Hand(symbol, *use, *target);
        }
    }

private:
    static void Hand(const Symbol& symbol, const Use& use, Symbol& target)
    {
        const double scaleX = std::fabs(use.Number(AttributeId::ScaleX, 1));
        const double scaleY = std::fabs(use.Number(AttributeId::ScaleY, 1));
        const double mean = std::log(symbol.meanScale) + (std::log(scaleX) + std::log(scaleY)) / 2;
        target.shown += symbol.shown;
        target.meanScale += symbol.shown * mean;
        target.greatestScale =
            std::max(target.greatestScale, symbol.greatestScale * std::max(scaleX, scaleY));
    }

    PictureLayout& m_layout;
};

// Scales multiply from the root, which is shown once as it is.
void FindShownScales(Root& root, const std::vector<Symbol*>& order, PictureLayout& layout)
{
    for (Symbol* symbol : order)
        ShownScales::Reset(*symbol);
    root.shown = root.greatestScale = 1;
    root.meanScale = 0;
    ShownScales scales(layout);
    scales.Pass(root);
    std::for_each(order.rbegin(), order.rend(), [&](Symbol* symbol) { scales.Pass(*symbol); });
}

} // namespace

ViewBox ViewBoxRound(const Box& box)
{
    if (box.IsEmpty())
        return {};
    const double width = box.High().x - box.Low().x;
    const double height = box.High().y - box.Low().y;
    const double farthest = std::max(
        {std::fabs(box.Low().x), std::fabs(box.Low().y), std::fabs(box.High().x), std::fabs(box.High().y)});
    const double larger = std::max(width, height);
    const double margin = std::max({larger * kMargin, farthest * 1e-6, larger > 0 ? 0.0 : 0.5});
    return {box.Low().x - margin, box.Low().y - margin, width + 2 * margin, height + 2 * margin, false};
}

PictureLayout MakeLayout(SvgHostDocument& document)
{
    PictureLayout layout;
    const std::vector<Symbol*> order = OrderByReference(document.symbols);
    for (Symbol* symbol : order) {
        symbol->isFill = IsFill(*symbol);
        SymbolLayout(document, *symbol, layout).Run();
        if (IsMask(*symbol))
            symbol->visible = 0;
        symbol->isWriting = IsWriting(*symbol);
    }
    SymbolLayout(document, document.root, layout).Run();
    FindShownScales(document.root, order, layout);
    layout.viewBox = ViewBoxRound(document.root.box);
    layout.statistics.elements = document.elements;
    layout.statistics.visibleElements = document.root.visible;
    layout.statistics.symbols = document.symbols.size();
    for (const Symbol* symbol : document.symbols)
        layout.statistics.duplicateSymbols += symbol->definition > 1;
    return layout;
}

} // namespace svghost
