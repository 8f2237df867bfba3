#include "convert/CDxfReadToQuillmar.h"

void CDxfReadToQuillmar::OnDimension(const DXF_GRAPHIC_DIMENSION&)
{
    // Dimensions are read; their drawing follows.
}
