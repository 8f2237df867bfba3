// TEXT and MTEXT. Their strings are kept as they are in the file, with blanks at both ends (quirk 69).
#include "entities/DXF_GRAPHIC_TEXT.h"
#include "entities/RareFields.h"
#include "entities/ReadEntity.h"

namespace {

// 31 and 39 are missing: the second point's z is taken from 33, and a text's thickness is reported as an
// unknown code (quirk 74).
using TEXT = DXF_GRAPHIC_TEXT;
using TEXT_FIELDS = DxfFields<TEXT>;
constexpr auto kTextFields = TEXT_FIELDS::Table({
    TEXT_FIELDS::End(0),
    TEXT_FIELDS::Field(10, &TEXT::m_dInsertX),
    TEXT_FIELDS::Field(20, &TEXT::m_dInsertY),
    TEXT_FIELDS::Field(30, &TEXT::m_dInsertZ),
    TEXT_FIELDS::Field(40, &TEXT::m_dHeight),
    TEXT_FIELDS::RawText(1, &TEXT::m_strText),
    TEXT_FIELDS::Field(50, &TEXT::m_dRotation),
    TEXT_FIELDS::Field(41, &TEXT::m_dScaleX),
    TEXT_FIELDS::Field(51, &TEXT::m_dOblique),
    TEXT_FIELDS::RawName(7, &TEXT::m_strStyle),
    TEXT_FIELDS::Field(71, &TEXT::m_nGenerationFlags),
    TEXT_FIELDS::Field(72, &TEXT::m_nHorzAlign),
    TEXT_FIELDS::Field(11, &TEXT::m_dAlignX),
    TEXT_FIELDS::Field(21, &TEXT::m_dAlignY),
    TEXT_FIELDS::Field(33, &TEXT::m_dAlignZ),
    TEXT_FIELDS::Function(210, StoreRare<TEXT, &DXF_GRAPHIC_RARE::m_dExtrusionX>),
    TEXT_FIELDS::Function(220, StoreRare<TEXT, &DXF_GRAPHIC_RARE::m_dExtrusionY>),
    TEXT_FIELDS::Function(230, StoreRare<TEXT, &DXF_GRAPHIC_RARE::m_dExtrusionZ>),
    TEXT_FIELDS::Field(73, &TEXT::m_nVertAlign),
});

// True colours (420 to 429) and colour names (430 to 439) of an MTEXT go to its background colour, never to
// the fields that all entities share (quirk 72); 48 is its column width, not a line type scale.
using MTEXT = DXF_GRAPHIC_MTEXT;
using MTEXT_FIELDS = DxfFields<MTEXT>;
constexpr auto kMTextFields = MTEXT_FIELDS::Table({
    MTEXT_FIELDS::End(0),
    MTEXT_FIELDS::Field(10, &MTEXT::m_dInsertX),
    MTEXT_FIELDS::Field(20, &MTEXT::m_dInsertY),
    MTEXT_FIELDS::Field(30, &MTEXT::m_dInsertZ),
    MTEXT_FIELDS::Field(40, &MTEXT::m_dHeight),
    MTEXT_FIELDS::Field(41, &MTEXT::m_dRefWidth),
    MTEXT_FIELDS::Field(71, &MTEXT::m_nAttachment),
    MTEXT_FIELDS::Field(72, &MTEXT::m_nDrawingDirection),
    MTEXT_FIELDS::RawText(1, &MTEXT::m_strText),
    MTEXT_FIELDS::RawText(3, &MTEXT::m_strTextMore),
    MTEXT_FIELDS::RawName(7, &MTEXT::m_strStyle),
    MTEXT_FIELDS::Function(210, StoreRare<MTEXT, &DXF_GRAPHIC_RARE::m_dExtrusionX>),
    MTEXT_FIELDS::Function(220, StoreRare<MTEXT, &DXF_GRAPHIC_RARE::m_dExtrusionY>),
    MTEXT_FIELDS::Function(230, StoreRare<MTEXT, &DXF_GRAPHIC_RARE::m_dExtrusionZ>),
    MTEXT_FIELDS::Field(11, &MTEXT::m_dDirX),
    MTEXT_FIELDS::Field(21, &MTEXT::m_dDirY),
    MTEXT_FIELDS::Field(31, &MTEXT::m_dDirZ),
    MTEXT_FIELDS::Field(42, &MTEXT::m_dCharWidth),
    MTEXT_FIELDS::Field(43, &MTEXT::m_dRectHeight),
    MTEXT_FIELDS::Field(50, &MTEXT::m_dRotation),
    MTEXT_FIELDS::Field(73, &MTEXT::m_nLineSpacingStyle),
    MTEXT_FIELDS::Field(44, &MTEXT::m_dLineSpacing),
    MTEXT_FIELDS::Field(90, &MTEXT::m_nBackgroundFill),
    MTEXT_FIELDS::Range(420, 439, &MTEXT::m_nBackgroundTrueColor),
    MTEXT_FIELDS::Field(63, &MTEXT::m_nBackgroundColor),
    MTEXT_FIELDS::Field(441, &MTEXT::m_dBackgroundTransparency),
    MTEXT_FIELDS::Field(75, &MTEXT::m_nColumnType),
    MTEXT_FIELDS::Field(76, &MTEXT::m_nColumnCount),
    MTEXT_FIELDS::Field(78, &MTEXT::m_nColumnFlowReversed),
    MTEXT_FIELDS::Field(79, &MTEXT::m_dColumnAutoHeight),
    MTEXT_FIELDS::Field(48, &MTEXT::m_dColumnWidth),
    MTEXT_FIELDS::Field(49, &MTEXT::m_dColumnGutter),
});

} // namespace

bool CDxfRead::ReadENTITIES_TEXT(CDxfStream& stream, DXF_ENTITY_LIST& list)
{
    return ReadEntity(*this, stream, list, kTextFields,
                      L"ReadENTITIES_TEXT Failed to read integer from '%s', Line:%d");
}

bool CDxfRead::ReadENTITIES_MTEXT(CDxfStream& stream, DXF_ENTITY_LIST& list)
{
    return ReadEntity(*this, stream, list, kMTextFields,
                      L"ReadENTITIES_MTEXT Failed to read integer from '%s', Line:%d");
}
