#include "svghost/LayerRun.h"

namespace svghost {

void LayerRun::Change()
{
    if (!m_open.empty())
        m_out.Close("g");
    m_open = m_wanted;
    if (m_open.empty())
        return;
    m_out.Begin("g");
    m_out.Set("data-layer", XmlTextOf(m_open));
    m_out.Open();
}

void LayerRun::End()
{
    m_wanted = {};
    BeginElement();
}

} // namespace svghost
