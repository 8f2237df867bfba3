// Blocks become symbols. The base point is meant to be ignored.
#include "convert/CDxfReadToQuillmar.h"
#include "entities/DXF_BLOCKS_BLOCK.h"

// When the host refuses the symbol, the block's entities are created at the default place.
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
