// Layers and line types by name, colours by number.
#include "reader/CDxfRead.h"

std::uint32_t CDxfRead::GetPaletteColor(std::int32_t number) const
{
    if (number < 1 || number > 255 || static_cast<std::size_t>(number) >= colorTable.size())
        return kDxfWhite;
    return colorTable[static_cast<std::size_t>(number)];
}

// A layer that is off has a negative colour number and lends no colour (quirk 22).
std::uint32_t CDxfRead::GetLayerColor(std::wstring_view name)
{
    const DXF_TABLES_LAYER* const layer = FindLayer(name);
    return layer == nullptr ? kDxfWhite : GetPaletteColor(layer->m_nColor);
}

const DXF_TABLES_LAYER* CDxfRead::FindLayer(std::wstring_view name)
{
    IndexTables();
    return m_layers.Find(name);
}

const DXF_TABLES_LTYPE* CDxfRead::FindLineType(std::wstring_view name)
{
    IndexTables();
    return m_lineTypes.Find(name);
}

void CDxfRead::IndexTables()
{
    if (m_areTablesIndexed)
        return;
    m_layers.Clear();
    m_lineTypes.Clear();
    for (const DXF_TABLES_HEADER* table : tables)
        for (const DXF_TABLES_COMMON* entry : table->m_entries) {
            if (entry->m_nTableKind == DXF_TABLES_KIND_LAYER)
                m_layers.Add(static_cast<const DXF_TABLES_LAYER&>(*entry));
            else if (entry->m_nTableKind == DXF_TABLES_KIND_LTYPE)
                m_lineTypes.Add(static_cast<const DXF_TABLES_LTYPE&>(*entry));
        }
    m_areTablesIndexed = true;
}
