#include "svghost/OrderByReference.h"

#include <algorithm>

namespace svghost {

namespace {

// Tarjan's search for strongly connected components, with a stack of its own in the place of recursion.
class CycleSearch {
public:
    explicit CycleSearch(std::size_t symbols) { m_order.reserve(symbols); }

    void SearchFrom(Symbol& start)
    {
        Visit(start);
        while (!m_path.empty()) {
            Step& step = m_path.back();
            if (step.use) {
                const Use& use = *step.use;
                step.use = use.nextOfSymbol;
                Follow(*step.symbol, use.target->definition);
            } else {
                Leave();
            }
        }
    }

    std::vector<Symbol*> TakeOrder() { return std::move(m_order); }

private:
    struct Step {
        Symbol* symbol;
        const Use* use; // the next one to follow
    };

    void Visit(Symbol& symbol)
    {
        symbol.visited = symbol.lowest = ++m_visits;
        m_open.push_back(&symbol);
        m_path.push_back({&symbol, symbol.firstUse});
    }

    void Follow(Symbol& from, Symbol* to)
    {
        if (!to)
            return;
        if (to->visited == 0)
            Visit(*to);
        else if (to->cycle == 0)
            from.lowest = std::min(from.lowest, to->visited);
    }

    void Leave()
    {
        Symbol& symbol = *m_path.back().symbol;
        m_path.pop_back();
        if (!m_path.empty())
            m_path.back().symbol->lowest = std::min(m_path.back().symbol->lowest, symbol.lowest);
        if (symbol.lowest == symbol.visited)
            CloseCycle(symbol);
    }

    void CloseCycle(Symbol& first)
    {
        ++m_cycles;
        Symbol* symbol = nullptr;
        do {
            symbol = m_open.back();
            m_open.pop_back();
            symbol->cycle = m_cycles;
            m_order.push_back(symbol);
        } while (symbol != &first);
    }

    std::vector<Step> m_path;
    std::vector<Symbol*> m_open; // visited, not yet in a closed cycle
    std::vector<Symbol*> m_order;
    std::uint32_t m_visits = 0;
    std::uint32_t m_cycles = 0;
};

} // namespace

std::vector<Symbol*> OrderByReference(const std::vector<Symbol*>& symbols)
{
    for (Symbol* symbol : symbols)
        symbol->visited = symbol->lowest = symbol->cycle = 0;
    CycleSearch search(symbols.size());
    for (Symbol* symbol : symbols) {
        if (symbol->visited == 0)
            search.SearchFrom(*symbol);
    }
    return search.TakeOrder();
}

} // namespace svghost
