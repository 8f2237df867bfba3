// The value that a dimension shows.
#include "dimension/CDxfDimensionDrawing.h"
#include "dimension/DXF_GRAPHIC_DIMENSION_PARTS.h"

// A dimension type of exactly 2, flags included, is an angle's (quirk 99). The sign is the ring above, not
// the degree sign (quirk 98).
const wchar_t* CDxfDimensionDrawing::UnitOf(const DIMENSION& dimension)
{
    return dimension.m_nDimType == 2 ? L"\u02DA" : L"";
}

void CDxfDimensionDrawing::DrawGeneralValue(const DIMENSION& dimension, double value, double degrees)
{
    ValueText text;
    text.AddGeneral(value).Add(UnitOf(dimension));
    DrawValue(dimension, text, degrees);
}

void CDxfDimensionDrawing::DrawAngleValue(const DIMENSION& dimension, double value, double degrees)
{
    ValueText text;
    text.AddWidth4Fixed2(value).Add(UnitOf(dimension));
    DrawValue(dimension, text, degrees);
}

// Shows the value, or the dimension's own text with every "<>" replaced by the value, 2 away from the place
// of the text (quirk 94).
void CDxfDimensionDrawing::DrawValue(const DIMENSION& dimension, const ValueText& value, double degrees)
{
    std::wstring_view rest = dimension.m_strText.empty() ? std::wstring_view(L"<>") : dimension.m_strText;
    std::wstring text;
    for (std::size_t found; (found = rest.find(L"<>")) != std::wstring_view::npos;
         rest.remove_prefix(found + 2))
        text.append(rest.substr(0, found)).append(value.c_str());
    text.append(rest);
    const DXF_POINT2D middle = Transform(dimension.m_dTextMidX, dimension.m_dTextMidY);
    LayoutDimensionText(text, ToFloat(middle.x), ToFloat(2 * m_scale + middle.y), ToFloat(degrees));
}
