// INSERT. The ATTRIB entities and the SEQEND that may follow one are entities of their own.
#include "entities/DXF_GRAPHIC_INSERT.h"
#include "entities/RareFields.h"
#include "entities/ReadEntity.h"

namespace {

using INSERT = DXF_GRAPHIC_INSERT;
constexpr auto kInsertFields = DxfFields<INSERT>(
    {
        End(0),
        {66, &INSERT::m_nAttributesFollow},
        KeptOnce(2, &INSERT::m_strBlockName),
        {10, &INSERT::m_dInsertX},
        {20, &INSERT::m_dInsertY},
        {30, &INSERT::m_dInsertZ},
        {41, &INSERT::m_dScaleX},
        {42, &INSERT::m_dScaleY},
        {43, &INSERT::m_dScaleZ},
        {50, &INSERT::m_dRotation},
        {70, &INSERT::m_nColumnCount},
        {71, &INSERT::m_nRowCount},
        {44, &INSERT::m_nColumnSpacing}, // the fraction is lost (quirk 83)
        {45, &INSERT::m_nRowSpacing},
    },
    kExtrusion);

} // namespace

bool CDxfRead::ReadENTITIES_INSERT(CDxfStream& stream, DXF_ENTITY_LIST& list)
{
    return ReadEntity(*this, stream, list, kInsertFields);
}
