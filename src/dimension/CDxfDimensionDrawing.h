// The drawing of dimensions.
#pragma once

#include "drawing/CDxfText.h"
#include "drawing/Transform.h"
#include "host/QuillmarLib.h"
#include "reader/CDxfRead.h"

#include <cstdint>
#include <string>
#include <string_view>

struct DXF_GRAPHIC_DIMENSION_2LineAngularDimension;
struct DXF_GRAPHIC_DIMENSION_AlignedDimension;
struct DXF_GRAPHIC_DIMENSION_CHORD;
struct DXF_GRAPHIC_DIMENSION_Dimension;

// Rebuilds the picture of a dimension from its definition points, as a group of lines, arrows and text. The
// dimension's own block is not used.
class CDxfDimensionDrawing {
public:
    // reader gets the reports; parentNode is the context node of every host call and not 0.
    CDxfDimensionDrawing(CDxfRead& reader, QlmNode parentNode, double scale, std::int32_t yAxisMode);

    // Draws each part that is to be drawn; missing parts leave the dimension undrawn without a word.
    void Draw(const DXF_GRAPHIC_DIMENSION& record);

    // Writes a dimension's text, with the inline codes it knows, at (x, y) in the document, turned by angle
    // in degrees.
    void LayoutDimensionText(std::wstring_view text, float x, float y, float angle);

private:
    using DIMENSION = DXF_GRAPHIC_DIMENSION_Dimension;
    using ALIGNED = DXF_GRAPHIC_DIMENSION_AlignedDimension;
    using CHORD = DXF_GRAPHIC_DIMENSION_CHORD;
    using ANGULAR = DXF_GRAPHIC_DIMENSION_2LineAngularDimension;

    enum class Arrows { None, End, Both };

    // The value that a dimension shows, as text with its unit.
    using ValueText = CDxfText<kLongestNumber + 1>;

    struct TextRun;

    void DrawAligned(const DIMENSION& dimension, const ALIGNED& aligned);
    void DrawRotated(const DIMENSION& dimension, const ALIGNED& aligned);
    void DrawLinear(const DIMENSION& dimension, const DXF_POINT2D& p1, const DXF_POINT2D& p2,
                    const DXF_POINT2D& q);
    void DrawRadial(const DIMENSION& dimension, const CHORD& radial);
    void DrawDiametric(const DIMENSION& dimension, const CHORD& diametric);
    void DrawAngular(const DIMENSION& dimension, const ANGULAR& angular);

    void DrawLine(const DXF_POINT2D& from, const DXF_POINT2D& to, Arrows arrows,
                  const wchar_t* color = nullptr);
    void DrawMark(const DXF_POINT2D& center, const wchar_t* color);
    void DrawValue(const DIMENSION& dimension, const ValueText& value, double degrees);
    void DrawGeneralValue(const DIMENSION& dimension, double value, double degrees);
    void DrawAngleValue(const DIMENSION& dimension, double value, double degrees);
    static const wchar_t* UnitOf(const DIMENSION& dimension);

    void LayoutPiece(std::wstring_view text, double x, double y, TextRun& outer);
    void LayoutCode(std::wstring_view text, double x, double y, TextRun& run);
    void LayoutPlain(std::wstring_view text, double x, double y, const TextRun& run);
    void DrawStack(std::wstring_view text, double x, double y, const TextRun& run);
    void DrawText(std::wstring_view text, double x, double y, double size, const TextRun& run);
    double RunWidth(std::wstring_view text, const TextRun& run) const;

    DXF_POINT2D Transform(double x, double y) const { return TransformPoint(x, y, m_scale, m_yAxisMode); }
    void SetAttribute(QlmNode node, const wchar_t* name, const wchar_t* value) const
    {
        qlmSetAttributeByNode(m_parentNode, node, name, value);
    }

    CDxfRead& m_reader;
    QlmNode m_parentNode;
    double m_scale;
    std::int32_t m_yAxisMode;
    CDxfNumberText m_strokeWidth;
};
