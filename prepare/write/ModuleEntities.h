// Writes plain entities in the way that the module needs.
#pragma once

#include "base/Decimals.h"
#include "prepare/report/Report.h"
#include "prepare/write/AreaStrokes.h"
#include "prepare/write/Flatten.h"
#include "prepare/write/ModuleLayers.h"
#include "prepare/write/ModuleStyles.h"
#include "prepare/write/ModuleTexts.h"
#include "prepare/write/PlainLog.h"

#include <string>
#include <string_view>
#include <vector>

namespace prepare {

// A block as it is written.
struct ModuleBlock {
    std::string name; // empty: it is not used
    Point2 origin;    // what is its origin in the file, in the units of the drawing
};

// How many areas were written so far, and how many inserted, and what is left for more.
struct FillCounts {
    std::size_t blocks = 0;
    std::size_t inserts = 0;
    std::uint64_t spareLooks = kSpareLooks; // for covering them
};

// What all entities of a drawing are written with.
struct ModuleOutput {
    PairWriter& pairs;
    const ModuleStyles& styles;
    const ModuleTexts& texts;
    ModuleLayers& layers;
    const std::vector<ModuleBlock>& blocks;
    Report& report;
    FillCounts& fills;
    Fineness& curves;  // in written units
    double factor = 1; // written units in one of the drawing
    int decimals = 0;  // of written coordinates
    // The width of the thinnest stroke, where areas are covered with strokes; 0: they are not.
    double coveringStroke = 0;
};

// What of a text the module does not get.
struct TextLoss {
    bool isCut = false;      // it is too long
    bool isReplaced = false; // it has letters that the system's code page lacks
};

// A line of one text, at its place.
ModuleLine ModuleLineOf(StyleId style, const LoggedText& text, const TextPlace& place, double factor,
                        int decimals, TextLoss& loss);

// A line of them, whose place is that of its first text.
ModuleLine ModuleLineOf(Point2 point, double spread, std::span<const LoggedRun> runs, const TextPlace& place,
                        double factor, int decimals, TextLoss& loss);

class ModuleEntities final : public LogVisitor {
public:
    // origin: the point of the drawing that is written as (0, 0). hasMarks: whether what is written says its
    // layers.
    ModuleEntities(const ModuleOutput& output, Point2 origin, bool hasMarks)
        : m_out(output), m_origin(origin), m_hasMarks(hasMarks && output.layers.HasMarks()),
          m_apart(4 * PowerOfTen(-output.decimals))
    {
    }

    void Line(StyleId style, Point2 start, Point2 end) override;
    void Circle(StyleId style, Point2 centre, double radius) override;
    void Arc(StyleId style, Point2 centre, double radius, double start, double end) override;
    void Ellipse(StyleId style, Point2 centre, Point2 majorAxis, double ratio, double start,
                 double end) override;
    void Polyline(StyleId style, std::span<const PlainVertex> vertices, bool isClosed) override;
    // Each inserts the block that WriteAreaBlock wrote for it.
    void Fill(StyleId style, std::span<const std::vector<Point2>> rings) override;
    void Mask(StyleId style, std::span<const std::vector<Point2>> rings) override;
    void Text(StyleId style, const LoggedText& text) override;
    void LineOfText(Point2 point, double spread, std::span<const LoggedRun> runs) override;
    void Insert(std::size_t block, Point2 point, double rotation, bool isMirrored) override;

    // Writes the block of an area: its edges, and strokes that cover it if it has a colour. All areas have
    // theirs written in the order in which they are inserted, before the first one is.
    void WriteAreaBlock(StyleId style, std::span<const std::vector<Point2>> rings, std::string_view prefix);

private:
    Point2 Local(Point2 p) const { return m_out.factor * (p - m_origin); }
    Point2 Rounded(Point2 p) const;
    bool AreSame(Point2 a, Point2 b) const;
    int DecimalsOfAngle(double radius, double unit) const;

    void Tell(const TextLoss& loss);
    void InsertText(const std::string& block, Point2 point, const TextPlace& place);

    void UseLayer(LayerNumber layer);

    // From here on, all numbers are in written units.
    void Begin(const char* type, StyleId style);
    void BeginPolyline(StyleId style, std::int32_t weight, bool isClosed);
    void Point(int code, Point2 p);
    void WriteLine(StyleId style, Point2 start, Point2 end);
    void WriteArc(StyleId style, Point2 centre, double radius, double start, double end);
    void WriteEllipse(StyleId style, Point2 centre, Point2 majorAxis, double ratio);
    void WriteEllipticalArc(StyleId style, Point2 centre, Point2 majorAxis, double ratio, double start,
                            double end, int splits);
    void RoundPoints(std::vector<Point2>& points, bool isClosed, int decimals) const;
    void WritePoints(StyleId style, std::vector<Point2>& points, bool isClosed);
    void WriteVertices(const std::vector<Point2>& points, int decimals);
    int DecimalsOfArea(std::span<const std::vector<Point2>> rings) const;
    void InsertArea(LayerNumber layer, std::span<const std::vector<Point2>> rings, std::string_view prefix);
    bool TakeRing(const std::vector<Point2>& ring, int decimals);
    std::vector<AreaStroke> StrokesOver(std::span<const std::vector<Point2>> rings, int decimals);
    bool WriteRoundPolyline(StyleId style, std::span<const PlainVertex> vertices, bool isClosed);

    const ModuleOutput& m_out;
    const Point2 m_origin;
    const bool m_hasMarks;
    const double m_apart;    // numbers farther apart are never written alike
    LayerNumber m_layer = 0; // the one that was marked last
    std::vector<Point2> m_points;
};

} // namespace prepare
