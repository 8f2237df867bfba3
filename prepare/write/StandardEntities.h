// Writes plain entities as any program reads them.
#pragma once

#include "prepare/report/Report.h"
#include "prepare/write/PlainLog.h"
#include "prepare/write/StandardTables.h"

#include <string>
#include <vector>

namespace prepare {

// What all entities of a drawing are written with.
struct StandardOutput {
    PairWriter& pairs;
    const StyleTable& styles;
    const std::vector<std::string>& styleTexts; // by the styles' numbers
    const StandardTables& tables;
    const std::vector<std::string>& blockNames; // by their numbers; empty: it is not used
    Report& report;
    Fineness& curves;      // ellipses that are wide lines
    double dot = 0;        // how long a dot is: not every program shows a line without length
    int decimals = 0;      // of coordinates
    std::uint64_t& handle; // the next free one
};

// The pairs of each style that every type has.
std::vector<std::string> StandardStyleTexts(const StyleTable& styles, const StandardTables& tables);

// The rings of a fill as they are written: without points on the one before, and none that bounds no area.
std::vector<std::vector<Point2>> WrittenRings(std::span<const std::vector<Point2>> rings, int decimals);

class StandardEntities final : public LogVisitor {
public:
    // owner: the block record of the entities.
    StandardEntities(const StandardOutput& output, std::uint64_t owner) : m_out(output), m_owner(owner) {}

    void Line(StyleId style, Point2 start, Point2 end) override;
    void Circle(StyleId style, Point2 centre, double radius) override;
    void Arc(StyleId style, Point2 centre, double radius, double start, double end) override;
    void Ellipse(StyleId style, Point2 centre, Point2 majorAxis, double ratio, double start,
                 double end) override;
    void Polyline(StyleId style, std::span<const PlainVertex> vertices, bool isClosed) override;
    void Fill(StyleId style, std::span<const std::vector<Point2>> rings) override;
    void Text(StyleId style, const LoggedText& text) override;
    void Insert(std::size_t block, Point2 point, double rotation, bool isMirrored) override;

private:
    void Begin(const char* type, std::string_view style);
    bool IsWide(StyleId style) const { return m_out.styles[style].width > 0; }

    const StandardOutput& m_out;
    const std::uint64_t m_owner;
};

} // namespace prepare
