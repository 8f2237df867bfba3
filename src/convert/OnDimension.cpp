#include "convert/CDxfReadToQuillmar.h"
#include "dimension/CDxfDimensionDrawing.h"

void CDxfReadToQuillmar::OnDimension(const DXF_GRAPHIC_DIMENSION& dimension)
{
    if (MayDraw())
        CDxfDimensionDrawing(*this, parentNode, scale, yAxisMode).Draw(dimension);
}
