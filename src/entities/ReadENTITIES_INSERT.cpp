// INSERT. The ATTRIB entities and the SEQEND that may follow one are entities of their own.
#include "entities/DXF_GRAPHIC_INSERT.h"
#include "entities/RareFields.h"
#include "entities/ReadEntity.h"

namespace {

using INSERT = DXF_GRAPHIC_INSERT;
using FIELDS = DxfFields<INSERT>;
constexpr auto kFields = FIELDS::Table({
    FIELDS::End(0),
    FIELDS::Field(66, &INSERT::m_nAttributesFollow),
    FIELDS::Name(2, &INSERT::m_strBlockName),
    FIELDS::Field(10, &INSERT::m_dInsertX),
    FIELDS::Field(20, &INSERT::m_dInsertY),
    FIELDS::Field(30, &INSERT::m_dInsertZ),
    FIELDS::Field(41, &INSERT::m_dScaleX),
    FIELDS::Field(42, &INSERT::m_dScaleY),
    FIELDS::Field(43, &INSERT::m_dScaleZ),
    FIELDS::Field(50, &INSERT::m_dRotation),
    FIELDS::Field(70, &INSERT::m_nColumnCount),
    FIELDS::Field(71, &INSERT::m_nRowCount),
    FIELDS::Field(44, &INSERT::m_nColumnSpacing), // the fraction is lost (quirk 83)
    FIELDS::Field(45, &INSERT::m_nRowSpacing),
    FIELDS::Function(210, StoreRare<INSERT, &DXF_GRAPHIC_RARE::m_dExtrusionX>),
    FIELDS::Function(220, StoreRare<INSERT, &DXF_GRAPHIC_RARE::m_dExtrusionY>),
    FIELDS::Function(230, StoreRare<INSERT, &DXF_GRAPHIC_RARE::m_dExtrusionZ>),
});

} // namespace

bool CDxfRead::ReadENTITIES_INSERT(CDxfStream& stream, DXF_ENTITY_LIST& list)
{
    return ReadEntity(*this, stream, list, kFields,
                      L"ReadENTITIES_INSERT Failed to read integer from '%s', Line:%d");
}
