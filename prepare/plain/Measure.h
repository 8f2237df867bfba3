// Measures a drawing before it is written: how far it reaches, how thin and small it gets.
#pragma once

#include "prepare/plain/Hull.h"
#include "prepare/plain/Plain.h"

#include <cstddef>
#include <cstdint>
#include <deque>

namespace prepare {

// What is known of a drawing or a block once all of it has been seen.
struct Measured {
    Hull hull;
    std::int32_t thinnestWeight = INT32_MAX; // hundredths of a millimetre
    double smallestText = HUGE_VAL;          // the height of its capitals
};

// Takes plain entities and keeps only their measures.
class Measure final : public PlainOutput {
public:
    Measure();

    PlainSink& Model() override { return m_sinks[0]; }
    std::size_t NewBlock(std::string_view name) override;
    PlainSink& Block(std::size_t number) override { return m_sinks[number + 1]; }

    // What the model's sink took until now counts no more.
    void ForgetModel() { m_sinks[0].measured = {}; }

    const Measured& OfModel() const { return m_sinks[0].measured; }
    const Measured& OfBlock(std::size_t number) const { return m_sinks[number + 1].measured; }

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

    std::deque<Sink> m_sinks; // the model's, then those of the blocks
};

} // namespace prepare
