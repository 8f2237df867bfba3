// A group in the host's document.
#pragma once

#include "host/QuillmarLib.h"

// While it lives, elements are created in a new group; then the host's current node is what it was before.
class CDxfGroup {
public:
    explicit CDxfGroup(QlmNode context) : m_context(context), m_outer(qlmGetCurrentSvgNode(context))
    {
        qlmSetCurrentSvgNode(context, qlmCreateG(context, L""));
    }
    ~CDxfGroup() { qlmSetCurrentSvgNode(m_context, m_outer); }
    CDxfGroup(const CDxfGroup&) = delete;
    CDxfGroup& operator=(const CDxfGroup&) = delete;

private:
    QlmNode m_context;
    QlmNode m_outer;
};
