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
constexpr auto kCommonFields = DxfFields<BASE>({
    {5, &BASE::m_strHandle},
    KeptOnce(6, &BASE::m_strLineType),
    KeptOnce(8, &BASE::m_strLayer),
    {48, ReadLineTypeScale},
    {60, &BASE::m_nVisibility},
    {62, &BASE::m_nColor},
    Rare(67, kMember<&RARE::m_nPaperSpace>),
    Rare(92, kMember<&RARE::m_nProxyByteCount>),
    KeptOnce(100, &BASE::m_strSubclass),
    {102, ReadAppGroup},
    Rare(284, kMember<&RARE::m_nShadowMode>),
    {310, ReadProxyData},
    {330, &BASE::m_strOwnerHandle},
    Rare(347, kMember<&RARE::m_strMaterial>),
    {370, &BASE::m_nLineWeight},
    Rare(390, kMember<&RARE::m_strPlotStyle>),
    Rare(410, kMember<&RARE::m_strLayout>),
    {420, &BASE::m_nTrueColor},
    Rare(430, kMember<&RARE::m_strColorName>),
    Rare(440, kMember<&RARE::m_strTransparency>),
});

} // namespace

bool CDxfRead::ReadENTITIES_COMMON(std::int32_t code, CDxfLine value, DXF_GRAPHIC_BASE& record,
                                   CDxfStream& stream)
{
    const DXF_FIELD<DXF_GRAPHIC_BASE>& field = kCommonFields.Find(code);
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
