#include "svghost/LayerRun.h"

namespace svghost {

std::string_view LayerTexts::Of(std::wstring_view layer)
{
    const auto [place, isNew] = m_texts.try_emplace(layer.data());
    if (isNew)
        place->second = EscapedForAttribute(XmlTextOf(layer));
    return place->second;
}

void LayerRun::Change()
{
    if (!m_open.empty())
        m_out.Close("g");
    m_open = m_wanted;
    if (m_open.empty())
        return;
    m_out.Begin("g");
    m_out.SetPlain("data-layer", m_texts.Of(m_open));
    m_out.Open();
}

void LayerRun::End()
{
    m_wanted = {};
    BeginElement();
}

} // namespace svghost
