// Blocks become symbols (quirk 78). The base point is ignored (quirk 77).
#include "convert/CDxfReadToQuillmar.h"
#include "entities/DXF_BLOCKS_BLOCK.h"

// If the host refuses the symbol, the block's entities are created at the default place (quirk 91).
void CDxfReadToQuillmar::OnBlockBegin(const DXF_BLOCKS_BLOCK& block)
{
    if (!MayDraw())
        return;
    qlmSetCurrentSvgNode(parentNode, nullptr);
    if (const QlmNode symbol = qlmCreateSymbol(parentNode, block.m_strName.c_str()))
        qlmSetCurrentSvgNode(parentNode, symbol);
}

void CDxfReadToQuillmar::OnBlockEnd(const DXF_BLOCKS_BLOCK&)
{
    if (MayDraw())
        qlmSetCurrentSvgNode(parentNode, nullptr);
}
