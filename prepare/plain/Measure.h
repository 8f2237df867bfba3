// Measures a drawing before it is written: how far it reaches, how thin and small it gets.
#pragma once

#include "base/CDxfArena.h"
#include "prepare/plain/Hull.h"
#include "prepare/plain/Plain.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <span>

namespace prepare {

// What is known of a drawing once all of it has been seen.
struct Measured {
    Hull hull;
    std::int32_t thinnestWeight = INT32_MAX; // hundredths of a millimetre
    double smallestText = HUGE_VAL;          // the height of its capitals
};

// The same of a block that has ended, of which there may be many.
struct MeasuredBlock {
    const Point2* points = nullptr; // of its hull, each once; they stay where they are
    std::uint32_t count = 0;
    std::int32_t thinnestWeight = INT32_MAX;
    double smallestText = HUGE_VAL;

    std::span<const Point2> Points() const { return {points, count}; }
    Box Bounds() const;
    // No point is farther from (0, 0) than that; 0 when there are none.
    double Radius() const;
};

// Takes plain entities and keeps only their measures.
class Measure final : public PlainOutput {
public:
    PlainSink& Model() override { return m_model; }
    std::size_t NewBlock(std::string_view name) override;
    PlainSink& Block(std::size_t number) override { return m_open.try_emplace(number, *this).first->second; }
    void EndBlock(std::size_t number) override;

    // What the model's sink took until now counts no more.
    void ForgetModel() { m_model.measured = {}; }

    const Measured& OfModel() const { return m_model.measured; }
    const MeasuredBlock& OfBlock(std::size_t number) const { return m_blocks[number]; }

private:
    struct Sink final : PlainSink {
        explicit Sink(Measure& itsOwner) : owner(itsOwner) {}
        void Line(const Style& style, Point2 start, Point2 end) override;
        void Circle(const Style& style, Point2 centre, double radius) override;
        void Arc(const Style& style, Point2 centre, double radius, double start, double end) override;
        void Ellipse(const Style& style, Point2 centre, Point2 majorAxis, double ratio, double start,
                     double end) override;
        void Polyline(const Style& style, std::span<const PlainVertex> vertices, bool isClosed) override;
        void Text(const Style& style, const PlainText& text) override;
        void Fill(const Style& style, std::span<const std::vector<Point2>> rings) override;
        void Insert(std::size_t block, Point2 point, double rotation, bool isMirrored) override;

        Measure& owner;
        Measured measured;
    };

    Sink m_model{*this};
    std::map<std::size_t, Sink> m_open; // of the blocks that something comes to
    std::deque<MeasuredBlock> m_blocks;
    CDxfArena m_points; // of m_blocks
};

} // namespace prepare
