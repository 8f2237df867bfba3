#include "convert/CDxfReadToQuillmar.h"
#include "entities/DXF_GRAPHIC_INSERT.h"

// The use element refers to the block by name, whether it is defined or not (quirk 80), and has no style
// (quirk 81). Rows, columns and attributes are not drawn (quirks 82 and 85). The rotation is a float (quirk
// 84).
void CDxfReadToQuillmar::OnInsert(const DXF_GRAPHIC_INSERT& insert)
{
    if (!MayDraw())
        return;
    const DXF_POINT2D point = Transform(insert.m_dInsertX, insert.m_dInsertY);
    const QlmNode node = qlmCreateUse(parentNode, L"", 0.0f, 0.0f, insert.m_strBlockName.c_str(), L"hmi",
                                      ToFloat(point.x), ToFloat(point.y));
    if (insert.m_dRotation != 0) {
        const float degrees = ToFloat(insert.m_dRotation);
        SetNumber(node, L"rotate", IsFlipped() ? -degrees : degrees);
    }
    if (insert.m_dScaleX != 1.0)
        SetNumber(node, L"scale-x", insert.m_dScaleX);
    if (insert.m_dScaleY != 1.0)
        SetNumber(node, L"scale-y", insert.m_dScaleY);
}
