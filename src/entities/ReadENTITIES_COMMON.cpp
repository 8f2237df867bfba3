// The group codes that all entities share.
#include "entities/RareFields.h"

namespace {

void ReadAppGroup(CDxfRead& reader, CDxfStream& stream, DXF_GRAPHIC_BASE& record, CDxfLine value)
{
    reader.ReadGroup(stream, RareOf(reader, record).m_strAppData, Trim(value), "102");
}

// The fraction is dropped (quirk 36).
void ReadLineTypeScale(CDxfRead& reader, CDxfStream&, DXF_GRAPHIC_BASE& record, CDxfLine value)
{
    SetRare(reader, record, &DXF_GRAPHIC_RARE::m_dLineTypeScale, static_cast<double>(ParseInteger(value)));
}

void ReadProxyData(CDxfRead& reader, CDxfStream&, DXF_GRAPHIC_BASE& record, CDxfLine value)
{
    SetRare(reader, record, &DXF_GRAPHIC_RARE::m_strProxyData, reader.store.Keep(Trim(value)));
}

using BASE = DXF_GRAPHIC_BASE;
using RARE = DXF_GRAPHIC_RARE;
using FIELDS = DxfFields<BASE>;
constexpr auto kFields = FIELDS::Table({
    FIELDS::Field(5, &BASE::m_strHandle),
    FIELDS::Name(6, &BASE::m_strLineType),
    FIELDS::Name(8, &BASE::m_strLayer),
    FIELDS::Function(48, ReadLineTypeScale),
    FIELDS::Field(60, &BASE::m_nVisibility),
    FIELDS::Field(62, &BASE::m_nColor),
    FIELDS::Function(67, StoreRare<BASE, &RARE::m_nPaperSpace>),
    FIELDS::Function(92, StoreRare<BASE, &RARE::m_nProxyByteCount>),
    FIELDS::Name(100, &BASE::m_strSubclass),
    FIELDS::Function(102, ReadAppGroup),
    FIELDS::Function(284, StoreRare<BASE, &RARE::m_nShadowMode>),
    FIELDS::Function(310, ReadProxyData),
    FIELDS::Field(330, &BASE::m_strOwnerHandle),
    FIELDS::Function(347, StoreRare<BASE, &RARE::m_strMaterial>),
    FIELDS::Field(370, &BASE::m_nLineWeight),
    FIELDS::Function(390, StoreRare<BASE, &RARE::m_strPlotStyle>),
    FIELDS::Function(410, StoreRare<BASE, &RARE::m_strLayout>),
    FIELDS::Field(420, &BASE::m_nTrueColor),
    FIELDS::Function(430, StoreRare<BASE, &RARE::m_strColorName>),
    FIELDS::Function(440, StoreRare<BASE, &RARE::m_strTransparency>),
});

} // namespace

bool CDxfRead::ReadENTITIES_COMMON(std::int32_t code, CDxfLine value, DXF_GRAPHIC_BASE& record,
                                   CDxfStream& stream)
{
    const DXF_FIELD<DXF_GRAPHIC_BASE>& field = kFields.Find(code);
    if (field.kind != DXF_FIELD_KIND::None) {
        StoreField(*this, stream, record, field, value);
        return true;
    }
    ReportUnknownCode(code, value, record);
    return false;
}

void CDxfRead::ReportUnknownCode(std::int32_t code, std::string_view value, const DXF_GRAPHIC_BASE& record)
{
    // The text says "Dimension type" for every kind of entity, and its code is 1, unlike that of all other
    // messages (quirk 119).
    const CDxfMessage message(L"ReadENTITIES_COMMON Unknown Dimension type %s ('%d' = '%s') Line:%d",
                              {record.m_strSubclass, code, Trim(value), lineCount});
    OnError(1, DXF_ERROR_GROUP_CODE, message.c_str(), 0);
}
