#include "svghost/Layout.h"

#include "svghost/Bounds.h"
#include "svghost/Document.h"
#include "svghost/References.h"

#include <algorithm>
#include <cmath>

namespace svghost {
namespace {

// Lays out one symbol, or the root, after all that it uses.
class SymbolLayout {
public:
    SymbolLayout(const SvgHostDocument& document, Symbol& symbol, Layout& layout)
        : m_document(document), m_symbol(symbol), m_layout(layout)
    {
        m_symbol.rendered = 1;
        m_symbol.nesting = 1;
        m_symbol.smallestScale = m_symbol.largestScale = 1;
        m_symbol.box = Box();
    }

    void run()
    {
        walk(
            m_symbol, [this](Node& node) { enter(node); }, [this](const Container& group) { leave(group); });
    }

private:
    void enter(Node& node)
    {
        node.leftOut = !keep(node);
        if (node.leftOut)
            return;
        ++m_symbol.rendered;
        m_layout.statistics.longDashPatterns +=
            m_document.value(AttributeId::DashArray, node.dashArray).tooLong;
        if (node.kind == Kind::Group)
            m_hiddenGroups += node.hidden;
        else if (!node.hidden && m_hiddenGroups == 0)
            m_symbol.box.add(boundsOf(m_document, node));
        collectArrows(node);
    }

    void leave(const Container& group) { m_hiddenGroups -= group.hidden; }

    bool keep(Node& node)
    {
        if (!isDrawable(node)) {
            ++m_layout.statistics.undrawableElements;
            return false;
        }
        return node.kind != Kind::Use || keepUse(static_cast<Use&>(node));
    }

    bool keepUse(const Use& use)
    {
        const Symbol* target = use.target->definition;
        // A use of nothing draws nothing, but it stands in the file for whoever adds the symbol.
        m_layout.statistics.missingSymbols += !target;
        if (target && m_symbol.kind == Kind::Symbol && target->cycle == m_symbol.cycle) {
            ++m_layout.statistics.cyclicUses;
            return false;
        }
        if (!keepScale(use, target)) {
            ++m_layout.statistics.undrawableElements;
            return false;
        }
        return !target || keepUnfolded(*target);
    }

    bool keepScale(const Use& use, const Symbol* target)
    {
        const double scaleX = std::fabs(use.number(AttributeId::ScaleX, 1));
        const double scaleY = std::fabs(use.number(AttributeId::ScaleY, 1));
        const double smallest = std::min(scaleX, scaleY) * (target ? target->smallestScale : 1);
        const double largest = std::max(scaleX, scaleY) * (target ? target->largestScale : 1);
        if (smallest < kSmallestScale || largest > kLargestScale)
            return false;
        m_symbol.smallestScale = std::min(m_symbol.smallestScale, smallest);
        m_symbol.largestScale = std::max(m_symbol.largestScale, largest);
        return true;
    }

    bool keepUnfolded(const Symbol& target)
    {
        const std::size_t rendered = m_symbol.rendered + target.rendered;
        const std::uint32_t nesting = std::max(m_symbol.nesting, target.nesting + 1);
        // The root draws its uses, it is not one level of them.
        const std::uint32_t deepest = m_symbol.kind == Kind::Root ? kDeepestUse + 1 : kDeepestUse;
        if (rendered > renderBudget(m_document.elements) || nesting > deepest) {
            ++m_layout.statistics.unboundedUses;
            return false;
        }
        m_symbol.rendered = rendered;
        m_symbol.nesting = nesting;
        return true;
    }

    void collectArrows(const Node& node)
    {
        for (const ArrowEnd end : {ArrowEnd::Begin, ArrowEnd::End}) {
            const double size = arrowSize(m_document, node, end);
            if (size > 0)
                m_layout.arrows.try_emplace({node.stroke, size}, m_layout.arrows.size() + 1);
        }
    }

    const SvgHostDocument& m_document;
    Symbol& m_symbol;
    Layout& m_layout;
    int m_hiddenGroups = 0;
};

// The box with a margin of two parts in a hundred; never without extent, also for a viewer's 32-bit floats.
ViewBox viewBoxRound(const Box& box)
{
    if (box.empty())
        return {};
    const double width = box.high().x - box.low().x;
    const double height = box.high().y - box.low().y;
    const double farthest = std::max(
        {std::fabs(box.low().x), std::fabs(box.low().y), std::fabs(box.high().x), std::fabs(box.high().y)});
    const double larger = std::max(width, height);
    const double margin = std::max({larger * 0.02, farthest * 1e-6, larger > 0 ? 0.0 : 0.5});
    return {box.low().x - margin, box.low().y - margin, width + 2 * margin, height + 2 * margin, false};
}

} // namespace

Layout makeLayout(SvgHostDocument& document)
{
    Layout layout;
    for (Symbol* symbol : orderByReference(document.symbols))
        SymbolLayout(document, *symbol, layout).run();
    SymbolLayout(document, document.root, layout).run();
    layout.viewBox = viewBoxRound(document.root.box);
    layout.statistics.elements = document.elements;
    layout.statistics.symbols = document.symbols.size();
    for (const Symbol* symbol : document.symbols)
        layout.statistics.duplicateSymbols += symbol->definition > 1;
    return layout;
}

} // namespace svghost
