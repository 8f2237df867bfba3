// TEXT and MTEXT. Only the place, the size, the colour and the horizontal anchor are drawn; formatting codes
// are passed on as read.
#include "convert/CDxfReadToQuillmar.h"
#include "drawing/CDxfText.h"
#include "entities/DXF_GRAPHIC_TEXT.h"

namespace {

const wchar_t* AnchorOfText(std::int32_t horizontalAlign)
{
    switch (horizontalAlign) {
    case 1:
        return L"middle";
    case 2:
        return L"end";
    default:
        return nullptr;
    }
}

// The host's words for an MTEXT differ from those for a TEXT (quirk 66).
const wchar_t* AnchorOfMText(std::int32_t attachment)
{
    switch (attachment) {
    case 1:
        return L"left";
    case 2:
        return L"middle";
    case 3:
        return L"right";
    default:
        return nullptr;
    }
}

} // namespace

void CDxfReadToQuillmar::OnText(const DXF_GRAPHIC_TEXT& text)
{
    DrawText(text, text.m_dInsertX, text.m_dInsertY, text.m_dHeight, text.m_strText.c_str(),
             AnchorOfText(text.m_nHorzAlign));
}

// The continuation in group 3 is left out (quirk 71).
void CDxfReadToQuillmar::OnMText(const DXF_GRAPHIC_MTEXT& text)
{
    DrawText(text, text.m_dInsertX, text.m_dInsertY, text.m_dHeight, text.m_strText.c_str(),
             AnchorOfMText(text.m_nAttachment));
}

// The height is added after the flip, so a text is one height below its insertion point (quirk 62). Whether
// it is invisible does not matter (quirk 76).
void CDxfReadToQuillmar::DrawText(const DXF_GRAPHIC_BASE& entity, double x, double y, double height,
                                  const wchar_t* text, const wchar_t* anchor)
{
    if (!MayDraw())
        return;
    const DXF_POINT2D point = Transform(x, y);
    const double drawnHeight = scale * height;
    const QlmNode node = qlmCreateText(parentNode, L"", ToFloat(point.x), ToFloat(point.y + drawnHeight),
                                       0.0f, 0.0f, text, 0.0f, 0.0f);
    SetAttribute(node, L"font-size", CDxfNumberText().AddWidth4Fixed2(drawnHeight).c_str());
    SetStroke(node, entity);
    if (anchor != nullptr)
        SetAttribute(node, L"text-anchor", anchor);
}
