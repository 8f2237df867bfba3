// TEXT and MTEXT. Their strings are kept as they are in the file, with blanks at both ends (quirk 69).
#include "entities/DXF_GRAPHIC_TEXT.h"
#include "entities/RareFields.h"
#include "entities/ReadEntity.h"

namespace {

// 31 and 39 are missing: the second point's z is taken from 33, and a text's thickness is reported as an
// unknown code (quirk 74).
using TEXT = DXF_GRAPHIC_TEXT;
constexpr auto kTextFields = DxfFields<TEXT>(
    {
        End(0),
        {10, &TEXT::m_dInsertX},
        {20, &TEXT::m_dInsertY},
        {30, &TEXT::m_dInsertZ},
        {40, &TEXT::m_dHeight},
        Raw(1, &TEXT::m_strText),
        {50, &TEXT::m_dRotation},
        {41, &TEXT::m_dScaleX},
        {51, &TEXT::m_dOblique},
        RawKeptOnce(7, &TEXT::m_strStyle),
        {71, &TEXT::m_nGenerationFlags},
        {72, &TEXT::m_nHorzAlign},
        {11, &TEXT::m_dAlignX},
        {21, &TEXT::m_dAlignY},
        {33, &TEXT::m_dAlignZ},
        {73, &TEXT::m_nVertAlign},
    },
    kExtrusion);

// True colours (420 to 429) and colour names (430 to 439) of an MTEXT go to its background colour, never to
// the fields that all entities share (quirk 72); 48 is its column width, not a line type scale.
using MTEXT = DXF_GRAPHIC_MTEXT;
constexpr auto kMTextFields = DxfFields<MTEXT>(
    {
        End(0),
        {10, &MTEXT::m_dInsertX},
        {20, &MTEXT::m_dInsertY},
        {30, &MTEXT::m_dInsertZ},
        {40, &MTEXT::m_dHeight},
        {41, &MTEXT::m_dRefWidth},
        {71, &MTEXT::m_nAttachment},
        {72, &MTEXT::m_nDrawingDirection},
        Raw(1, &MTEXT::m_strText),
        Raw(3, &MTEXT::m_strTextMore),
        RawKeptOnce(7, &MTEXT::m_strStyle),
        {11, &MTEXT::m_dDirX},
        {21, &MTEXT::m_dDirY},
        {31, &MTEXT::m_dDirZ},
        {42, &MTEXT::m_dCharWidth},
        {43, &MTEXT::m_dRectHeight},
        {50, &MTEXT::m_dRotation},
        {73, &MTEXT::m_nLineSpacingStyle},
        {44, &MTEXT::m_dLineSpacing},
        {90, &MTEXT::m_nBackgroundFill},
        {420, 439, &MTEXT::m_nBackgroundTrueColor},
        {63, &MTEXT::m_nBackgroundColor},
        {441, &MTEXT::m_dBackgroundTransparency},
        {75, &MTEXT::m_nColumnType},
        {76, &MTEXT::m_nColumnCount},
        {78, &MTEXT::m_nColumnFlowReversed},
        {79, &MTEXT::m_dColumnAutoHeight},
        {48, &MTEXT::m_dColumnWidth},
        {49, &MTEXT::m_dColumnGutter},
    },
    kExtrusion);

} // namespace

bool CDxfRead::ReadENTITIES_TEXT(CDxfStream& stream, DXF_ENTITY_LIST& list)
{
    return ReadEntity(*this, stream, list, kTextFields);
}

bool CDxfRead::ReadENTITIES_MTEXT(CDxfStream& stream, DXF_ENTITY_LIST& list)
{
    return ReadEntity(*this, stream, list, kMTextFields);
}
