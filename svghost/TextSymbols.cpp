#include "svghost/TextSymbols.h"

#include "svghost/AgreedSymbols.h"

#include <algorithm>

namespace svghost {

namespace {

bool IsRun(const Node& node)
{
    return node.kind == Kind::Text && !node.isLeftOut && !node.isHidden &&
           node.Number(AttributeId::Rotate, 0) == 0;
}

// The other runs have the attributes of the first one, except for their colour and size.
bool IsFurtherRun(const Node& node)
{
    for (const ExtraAttribute* extra = node.extra; extra; extra = extra->next)
        if (extra->id != AttributeId::FontSize && extra->id != AttributeId::TextAnchor)
            return false;
    return IsRun(node);
}

bool IsPlainUse(const Node& node)
{
    if (node.kind != Kind::Use || node.isLeftOut || node.isHidden)
        return false;
    const Symbol* target = static_cast<const Use&>(node).target->definition;
    return target && target->isWriting && !InnerUse(*target);
}

} // namespace

bool IsWriting(const Symbol& symbol)
{
    if (symbol.definition != 1 || !symbol.name->name.starts_with(kTextPrefix) || !symbol.first ||
        symbol.extra)
        return false;
    if (!symbol.first->next && IsPlainUse(*symbol.first))
        return true;
    if (!IsRun(*symbol.first))
        return false;
    for (const Node* node = symbol.first->next; node; node = node->next)
        if (!IsFurtherRun(*node))
            return false;
    return true;
}

float WidthOfWriting(const Symbol& writing)
{
    const Text& text = static_cast<const Text&>(*writing.first);
    if (text.x >= 0 || text.Find(AttributeId::TextAnchor))
        return 0;
    if (writing.name->name.starts_with(kMiddleTextPrefix))
        return -2 * text.x;
    return writing.name->name.starts_with(kEndTextPrefix) || SpreadOfWriting(writing) > 0 ? -text.x : 0;
}

double SpreadOfWriting(const Symbol& writing)
{
    constexpr int kMost = 1'000'000;
    std::wstring_view name = writing.name->name;
    if (!name.starts_with(kSpreadTextPrefix))
        return 0;
    name.remove_prefix(kSpreadTextPrefix.size());
    int thousandths = 0;
    for (; !name.empty() && name.front() >= L'0' && name.front() <= L'9'; name.remove_prefix(1))
        thousandths = std::min(10 * thousandths + static_cast<int>(name.front() - L'0'), kMost);
    return name.starts_with(L'_') ? thousandths / 1000.0 : 0;
}

std::size_t LengthOfWriting(const Symbol& writing)
{
    if (const Use* inner = InnerUse(writing))
        return LengthOfWriting(*inner->target->definition);
    std::size_t length = 0;
    for (const Node* node = writing.first; node; node = node->next)
        length += static_cast<const Text*>(node)->text.size();
    return length;
}

} // namespace svghost
