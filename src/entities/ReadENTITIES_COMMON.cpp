// The group codes that all entities share.
#include "entities/DXF_GRAPHIC_BASE.h"
#include "reader/ReadFields.h"

namespace {

void ReadAppGroup(CDxfRead& reader, CDxfStream& stream, DXF_GRAPHIC_BASE& record, std::string_view value)
{
    reader.ReadGroup(stream, record.m_strAppData, Trim(value), "102");
}

using BASE = DXF_GRAPHIC_BASE;
using FIELDS = DxfFields<BASE>;
constexpr auto kFields = FIELDS::Table({
    FIELDS::Field(5, &BASE::m_strHandle),
    FIELDS::Name(6, &BASE::m_strLineType),
    FIELDS::Name(8, &BASE::m_strLayer),
    FIELDS::IntegerAsReal(48, &BASE::m_dLineTypeScale), // meant: the fraction is dropped
    FIELDS::Field(60, &BASE::m_nVisibility),
    FIELDS::Field(62, &BASE::m_nColor),
    FIELDS::Field(67, &BASE::m_nPaperSpace),
    FIELDS::Field(92, &BASE::m_nProxyByteCount),
    FIELDS::Name(100, &BASE::m_strSubclass),
    FIELDS::Function(102, ReadAppGroup),
    FIELDS::Field(284, &BASE::m_nShadowMode),
    FIELDS::Field(310, &BASE::m_strProxyData),
    FIELDS::Name(330, &BASE::m_strOwnerHandle),
    FIELDS::Name(347, &BASE::m_strMaterial),
    FIELDS::Field(370, &BASE::m_nLineWeight),
    FIELDS::Name(390, &BASE::m_strPlotStyle),
    FIELDS::Name(410, &BASE::m_strLayout),
    FIELDS::Field(420, &BASE::m_nTrueColor),
    FIELDS::Name(430, &BASE::m_strColorName),
    FIELDS::Name(440, &BASE::m_strTransparency),
});

} // namespace

bool CDxfRead::ReadENTITIES_COMMON(std::int32_t code, std::string_view value, DXF_GRAPHIC_BASE& record,
                                   CDxfStream& stream)
{
    const DXF_FIELD<DXF_GRAPHIC_BASE>& field = kFields.Find(code);
    if (field.kind != DXF_FIELD_KIND::None) {
        StoreField(*this, stream, record, field, value);
        return true;
    }
    // "Dimension type" stands in the text for every kind of entity, and the code 1 sets this message apart
    // from all others; both are meant.
    const CDxfMessage message(L"ReadENTITIES_COMMON Unknown Dimension type %s ('%d' = '%s') Line:%d",
                              {record.m_strSubclass, code, Trim(value), lineCount});
    OnError(1, DXF_ERROR_GROUP_CODE, message.c_str(), 0);
    return false;
}
